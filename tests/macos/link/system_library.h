// Restores the C++ library's marks of availability, which say since which system a part exists.
#undef _LIBCPP_HAS_VENDOR_AVAILABILITY_ANNOTATIONS
#define _LIBCPP_HAS_VENDOR_AVAILABILITY_ANNOTATIONS 1
