# The kit for the authors of the family's effects: its example as a module for the stand-in, and its installation,
#   cmake --install build/release --component sdk --prefix FOLDER

add_subdirectory(sdk/example)

install(DIRECTORY ${CMAKE_SOURCE_DIR}/sdk DESTINATION . COMPONENT sdk EXCLUDE_FROM_ALL)
install(FILES ${CMAKE_SOURCE_DIR}/docs/for-effect-authors.md DESTINATION . COMPONENT sdk EXCLUDE_FROM_ALL)
