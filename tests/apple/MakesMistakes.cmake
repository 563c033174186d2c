# Makes the mistakes that the compiler for macOS is to notice, and links the built bundle once more for each of those
# that the look at the module is to notice: what it notices stands in Module_test.cpp. Each of these is one change in the
# line that linked the module, and links without a word. The parameters are those of ForMacos.cmake, and
#   BUILD    the folder that BuildsModule.cmake has built in
#   WRONG    the folder for the wrong modules
include(${CMAKE_CURRENT_LIST_DIR}/ForMacos.cmake)

# last_command(TARGET TEXT RESULT): the last command for the target that holds the text.
function(last_command target text result)
  commands_of(${target} ${BUILD} commands)
  string(REPLACE ";" "\\;" commands "${commands}")
  string(REPLACE "\n" ";" commands "${commands}")
  set(found)
  foreach(command IN LISTS commands)
    string(FIND "${command}" "${text}" place)
    if(NOT place EQUAL -1)
      set(found "${command}")
    endif()
  endforeach()
  if(NOT found)
    message(FATAL_ERROR "No command for ${target} holds ${text}")
  endif()
  set(${result} "${found}" PARENT_SCOPE)
endfunction()

# run(COMMAND CODE OUTPUT)
function(run command code output)
  execute_process(COMMAND sh -c "${command}" WORKING_DIRECTORY ${BUILD}
    RESULT_VARIABLE ended OUTPUT_VARIABLE said ERROR_VARIABLE said)
  set(${code} ${ended} PARENT_SCOPE)
  set(${output} "${said}" PARENT_SCOPE)
endfunction()

function(run_well command)
  run("${command}" code output)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "This fails:\n${command}\n${output}")
  endif()
endfunction()

# replace_once(WAS IS): in the variable `command`; WAS is a regular expression that matches there exactly once.
macro(replace_once was is)
  string(REGEX MATCHALL "${was}" places "${command}")
  list(LENGTH places count)
  if(NOT count EQUAL 1)
    message(FATAL_ERROR "${was} stands ${count} times in:\n${command}")
  endif()
  string(REGEX REPLACE "${was}" "${is}" command "${command}")
endmacro()

# compile_with_module(SOURCE OBJECT RESULT): the command that compiles the source as the module's own is compiled.
function(compile_with_module source object result)
  last_command(VortanObjectPanel "/Bundle.cpp.o.d " command)
  replace_once(" -o [^ ]+" " -o ${object}")
  replace_once(" -MF [^ ]+" " -MF ${object}.d")
  replace_once(" -c [^ ]+" " -c ${source}")
  set(${result} "${command}" PARENT_SCOPE)
endfunction()

# must_not_compile(SOURCE MESSAGE): for neither of the architectures.
function(must_not_compile source message)
  foreach(other arm64 x86_64)
    compile_with_module(${SOURCE}/tests/apple/wrong/${source} ${WRONG}/wrong.o command)
    replace_once("-arch ${other} " "")
    run("${command}" code output)
    if(code EQUAL 0 OR NOT output MATCHES "${message}")
      message(FATAL_ERROR "${source} compiles, or fails with something else:\n${output}")
    endif()
  endforeach()
endfunction()

# wrong_module(NAME [WAS IS]...)
function(wrong_module name)
  set(command "${link_line}")
  replace_once("-o VortanObjectPanel.plugin/Contents/MacOS/VortanObjectPanel " "-o ${WRONG}/${name} ")
  set(changes ${ARGN})
  while(changes)
    list(POP_FRONT changes was is)
    replace_once("${was}" "${is}")
  endwhile()
  run_well("${command}")
endfunction()

file(REMOVE_RECURSE ${WRONG})
file(MAKE_DIRECTORY ${WRONG})
last_command(VortanObjectPanel "-o VortanObjectPanel.plugin/Contents/MacOS/VortanObjectPanel " link_line)

must_not_compile(WrongOffset.cpp "pointers have eight bytes on this target")
must_not_compile(NewerThanMinimum.cpp "'to_chars' is unavailable")
compile_with_module(${SOURCE}/tests/apple/wrong/StrayInitialiser.cpp ${WRONG}/StrayInitialiser.o command)
run_well("${command}")

file(WRITE ${WRONG}/exports.txt "EffectorAEGP\nPanelEntryPointFunc\n")
file(WRITE ${WRONG}/one-export.txt "_PanelEntryPointFunc\n")
set(list "-exported_symbols_list,[^ ]+")

wrong_module(exports-without-underscore "${list}" "-exported_symbols_list,${WRONG}/exports.txt")
wrong_module(missing-root "${list}" "-exported_symbols_list,${WRONG}/one-export.txt" "-Wl,-u,_EffectorAEGP " "")
wrong_module(all-exported "-Wl,${list} " "")
wrong_module(stray-initialiser " -Wl,-dead_strip " " -Wl,-dead_strip ${WRONG}/StrayInitialiser.o ")
wrong_module(wrong-minimum "-mmacosx-version-min=[0-9.]+" "-mmacosx-version-min=12.0")
wrong_module(missing-class " [^ ]+/PluginView.mm.o " " ")
wrong_module(missing-library " [^ ]+/libpanel-contents.a " " ")
wrong_module(one-architecture "-arch x86_64 " "")
wrong_module(not-a-bundle " -bundle " " -dynamiclib ")
