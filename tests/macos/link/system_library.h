// Puts the marks back by which the C++ library says since which system a part of it exists.
#undef _LIBCPP_HAS_VENDOR_AVAILABILITY_ANNOTATIONS
#define _LIBCPP_HAS_VENDOR_AVAILABILITY_ANNOTATIONS 1
