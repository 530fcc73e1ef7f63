enable_language(OBJCXX)
find_package(nlohmann_json REQUIRED)

set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)

# Updates need the framework, the address of the feed and the key to trust.
set(ZV_SPARKLE "" CACHE PATH "Sparkle.framework to put into the application; empty for a build without updates")
set(ZV_FEED_URL "" CACHE STRING "Address of the update feed")
set(ZV_UPDATE_KEY "" CACHE STRING "Public Ed25519 key of the updates, base64")
set(ZV_SIGNING_IDENTITY "-" CACHE STRING "Certificate to sign each build with; - for none, which is good on this machine alone")

# Warnings are shown, not fatal: they vary with versions of the compiler and the SDK.
target_compile_options(zv_options INTERFACE -Wno-error -Wno-unused-parameter -Wno-four-char-constants)

zv_library(zv_base FOLDERS base platform/files)
zv_library(zv_app FOLDERS app LINK zv_base nlohmann_json::nlohmann_json)
zv_library(zv_cli FOLDERS cli LINK zv_app nlohmann_json::nlohmann_json)

file(GLOB_RECURSE front_end CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/macos/*.mm ${CMAKE_SOURCE_DIR}/platform/macos/*.cpp)
set(resources
    "${CMAKE_SOURCE_DIR}/app/resources/Begging.rtf"
    "${CMAKE_SOURCE_DIR}/app/resources/Default Apple Menu.plist"
    "${CMAKE_SOURCE_DIR}/app/resources/DockMenu.plist"
    "${CMAKE_SOURCE_DIR}/app/resources/Library.plist"
    "${CMAKE_SOURCE_DIR}/app/resources/Licences.txt"
    "${CMAKE_SOURCE_DIR}/packaging/macos/ZantheVell.icns")
set(man_pages "${CMAKE_SOURCE_DIR}/packaging/linux/zanthe-vell.1")
set(completions
    "${CMAKE_SOURCE_DIR}/packaging/linux/completions/_zanthe-vell"
    "${CMAKE_SOURCE_DIR}/packaging/linux/completions/zanthe-vell.bash"
    "${CMAKE_SOURCE_DIR}/packaging/linux/completions/zanthe-vell.fish")
set_source_files_properties(${resources} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
set_source_files_properties(${man_pages} PROPERTIES MACOSX_PACKAGE_LOCATION Resources/man/man1)
set_source_files_properties(${completions} PROPERTIES MACOSX_PACKAGE_LOCATION Resources/completions)
list(APPEND resources ${man_pages} ${completions})

# The languages' tables, and empty English ones, without which the system would take another language for English.
find_program(ZV_MSGFMT msgfmt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/po/LINGUAS)
file(STRINGS ${CMAKE_SOURCE_DIR}/po/LINGUAS languages REGEX "^[a-z]")
if(NOT ZV_MSGFMT)
  message(WARNING "msgfmt (gettext) is missing: the application speaks English only")
  set(languages)
endif()
foreach(language IN LISTS languages ITEMS en)
  set(catalogue "-")
  if(NOT language STREQUAL "en")
    set(catalogue ${CMAKE_SOURCE_DIR}/po/${language}.po)
  endif()
  string(REPLACE "zh_CN" "zh-Hans" lproj ${language}.lproj)
  string(REPLACE "_" "-" lproj ${lproj})
  set(folder ${CMAKE_BINARY_DIR}/languages/${lproj})
  set(tables ${folder}/Localizable.strings ${folder}/Localizable.stringsdict ${folder}/InfoPlist.strings ${folder}/ServicesMenu.strings)
  add_custom_command(OUTPUT ${tables} VERBATIM
      COMMAND ${CMAKE_SOURCE_DIR}/packaging/macos/make-strings ${language} ${catalogue} ${folder}
      DEPENDS ${CMAKE_SOURCE_DIR}/po/LINGUAS ${CMAKE_SOURCE_DIR}/packaging/macos/make-strings ${CMAKE_SOURCE_DIR}/packaging/macos/Info.plist.in)
  if(NOT catalogue STREQUAL "-")
    add_custom_command(OUTPUT ${tables} APPEND DEPENDS ${catalogue})
  endif()
  set_source_files_properties(${tables} PROPERTIES MACOSX_PACKAGE_LOCATION Resources/${lproj})
  list(APPEND resources ${tables})
endforeach()

# The address goes into a property list, which is XML.
string(REPLACE "&" "&amp;" ZV_FEED_URL "${ZV_FEED_URL}")

add_executable(zanthe-vell MACOSX_BUNDLE ${front_end} ${resources})
set_target_properties(zanthe-vell PROPERTIES
    OUTPUT_NAME "Zanthe Vell"
    MACOSX_BUNDLE_INFO_PLIST ${CMAKE_SOURCE_DIR}/packaging/macos/Info.plist.in
    # All that the signature covers: a change of one links and signs anew.
    LINK_DEPENDS "${resources};${CMAKE_SOURCE_DIR}/packaging/macos/ZantheVell.entitlements;${CMAKE_BINARY_DIR}/Zanthe Vell.app/Contents/Info.plist"
    BUILD_RPATH "@executable_path/../Frameworks"
    INSTALL_RPATH "@executable_path/../Frameworks")
target_compile_options(zanthe-vell PRIVATE $<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-arc>)
# The system's headers must not make macros of words such as check and verify.
target_compile_definitions(zanthe-vell PRIVATE __ASSERT_MACROS_DEFINE_VERSIONS_WITHOUT_UNDERSCORES=0)

set(frameworks Cocoa ApplicationServices Carbon CoreGraphics CoreServices DiskArbitration ServiceManagement SystemConfiguration UniformTypeIdentifiers UserNotifications)
list(TRANSFORM frameworks PREPEND "-framework ")
target_link_libraries(zanthe-vell PRIVATE zv_cli zv_app zv_base ${frameworks})

if(ZV_SPARKLE)
  add_custom_command(TARGET zanthe-vell POST_BUILD VERBATIM
      COMMAND ${CMAKE_COMMAND} -E make_directory "$<TARGET_BUNDLE_CONTENT_DIR:zanthe-vell>/Frameworks"
      COMMAND ditto "${ZV_SPARKLE}" "$<TARGET_BUNDLE_CONTENT_DIR:zanthe-vell>/Frameworks/Sparkle.framework"
      COMMAND codesign --force --deep --preserve-metadata=entitlements --sign "${ZV_SIGNING_IDENTITY}" "$<TARGET_BUNDLE_CONTENT_DIR:zanthe-vell>/Frameworks/Sparkle.framework")
endif()

# With a certificate, permissions once given are remembered from build to build. The program
# and the parts of the framework have different entitlements: each is signed for itself.
add_custom_command(TARGET zanthe-vell POST_BUILD VERBATIM
    COMMAND codesign --force --sign "${ZV_SIGNING_IDENTITY}" --entitlements "${CMAKE_SOURCE_DIR}/packaging/macos/ZantheVell.entitlements" "$<TARGET_BUNDLE_DIR:zanthe-vell>")
