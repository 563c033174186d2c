# abi-check compares the project's declarations of the host's interface with the host's own headers. Those
# are no part of the project: whoever has them names their folder.

set(VORTAN_HOST_SDK "" CACHE PATH "Folder with the host's own headers; empty if they are not at hand")
set(VORTAN_HOST_SDK_DEFINITIONS "" CACHE STRING "Macros that those headers ask for")

# vortan_abi_check(TARGET FOLDER): includes every header in the folder that declares one of the tables.
function(vortan_abi_check target folder)
  file(STRINGS ${CMAKE_SOURCE_DIR}/bundle/abi/CheckedNames.h lists REGEX "Suite[0-9]?\\)")
  string(REGEX MATCHALL "[A-Za-z_]+Suite[0-9]*" tables "${lists}")
  list(REMOVE_DUPLICATES tables)
  list(JOIN tables "|" tables)

  file(GLOB_RECURSE headers ${folder}/*.h ${folder}/*.hpp)
  set(includes)
  set(directories)
  foreach(header ${headers})
    cmake_path(GET header PARENT_PATH directory)
    list(APPEND directories ${directory})
    file(STRINGS ${header} declarations LIMIT_COUNT 1
      REGEX "(struct[ \t]+(${tables})([ \t{]|$)|}[ \t]*(${tables})[ \t]*;)")
    if(declarations)
      string(APPEND includes "#include \"${header}\"\n")
    endif()
  endforeach()
  if(NOT includes)
    message(FATAL_ERROR "${folder} holds no header that declares one of the host's tables")
  endif()
  list(REMOVE_DUPLICATES directories)

  set(work ${CMAKE_CURRENT_BINARY_DIR}/${target})
  file(CONFIGURE OUTPUT ${work}/HostSdkHeaders.h CONTENT "${includes}" @ONLY)
  add_executable(${target} ${CMAKE_SOURCE_DIR}/bundle/abi/AbiCheck.cpp)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR} ${work})
  target_include_directories(${target} SYSTEM PRIVATE ${directories})
  target_compile_definitions(${target} PRIVATE ${VORTAN_HOST_SDK_DEFINITIONS})
endfunction()
