# What the compiler for macOS says to the sources that need no system header: the host's binary interface
# with all its assertions about sizes and offsets, and the seam to the platform.
set(headers
  host/Export.h
  host/HostSuites.h
  host/HostTypes.h
  host/IdleSuite.h
  host/SuiteHelper.h
  host/SuiteTraits.h
  panel/platform/PanelatorUI.h
  panel/platform/PlatformView.h)
set(sources
  panel/platform/PanelatorUI.cpp)

foreach(target arm64-apple-macos11 x86_64-apple-macos10.15)
  set(compile ${CMAKE_OBJCXX_COMPILER} -target ${target} -fsyntax-only -x c++ -std=c++17
    -ffreestanding -nostdinc++ -isystem ${CMAKE_CURRENT_SOURCE_DIR}/freestanding -I${CMAKE_SOURCE_DIR}
    -Wall -Wextra -Wshadow -Wconversion -Werror)
  foreach(header ${headers})
    add_test(NAME apple-target.${target}.${header}
      COMMAND ${compile} -include ${CMAKE_SOURCE_DIR}/${header} /dev/null)
    set_tests_properties(apple-target.${target}.${header} PROPERTIES LABELS bundle)
  endforeach()
  foreach(source ${sources})
    add_test(NAME apple-target.${target}.${source} COMMAND ${compile} ${CMAKE_SOURCE_DIR}/${source})
    set_tests_properties(apple-target.${target}.${source} PROPERTIES LABELS bundle)
  endforeach()
  add_test(NAME apple-target.${target}.notices-a-wrong-offset
    COMMAND ${compile} ${CMAKE_CURRENT_SOURCE_DIR}/WrongOffset.cpp)
  set_tests_properties(apple-target.${target}.notices-a-wrong-offset PROPERTIES LABELS bundle
    PASS_REGULAR_EXPRESSION "pointers have eight bytes on this target")
endforeach()
