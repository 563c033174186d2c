# What abi-check says to headers that it has never seen: copies of the project's own, as they are and each
# with one alteration.

include(VortanAbiCheck)

# abi_headers(FOLDER [OLD NEW]): the copies, without their assertions, with one text replaced.
function(abi_headers folder)
  foreach(header HostSuites.h HostTypes.h)
    file(READ ${CMAKE_SOURCE_DIR}/host/${header} text)
    string(REPLACE "#include \"host/" "#include \"" text "${text}")
    string(REPLACE "static_assert(" "VORTAN_IGNORED(" text "${text}")
    if(ARGC GREATER 1)
      string(REPLACE "${ARGV1}" "${ARGV2}" text "${text}")
    endif()
    file(CONFIGURE OUTPUT ${folder}/${header} @ONLY CONTENT
      "#undef VORTAN_IGNORED\n#define VORTAN_IGNORED(...) static_assert(true, \"\")\n${text}")
  endforeach()
endfunction()

# abi_self_test(NAME LINE [OLD NEW]): the line is a regular expression that the output must match.
function(abi_self_test name line)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/abi/${name})
  if(ARGC GREATER 2)
    abi_headers(${folder} "${ARGV2}" "${ARGV3}")
  else()
    abi_headers(${folder})
  endif()
  vortan_abi_check(abi-check-${name} ${folder})
  add_test(NAME abi-check.${name}
    COMMAND ${CMAKE_COMMAND} -D PROGRAM=$<TARGET_FILE:abi-check-${name}> -D LINE=${line}
      -P ${CMAKE_CURRENT_SOURCE_DIR}/ExpectAbiCheck.cmake)
  set_tests_properties(abi-check.${name} PROPERTIES LABELS bundle)
endfunction()

abi_self_test(finds-no-difference-where-there-is-none "^[0-9]+ compared, 0 different")
abi_self_test(finds-a-function-in-another-slot
  "DIFFERS  AEGP_ItemSuite1::AEGP_GetItemID: another place"
  "A_Err (*AEGP_GetItemID)(AEGP_ItemH, A_long*);\n    ReservedSlot reserved8[12];"
  "ReservedSlot reserved7[1];\n    A_Err (*AEGP_GetItemID)(AEGP_ItemH, A_long*);\n    ReservedSlot reserved9[11];")
abi_self_test(finds-a-table-of-another-size
  "DIFFERS  PFAppSuite4: another size"
  "ReservedSlot reserved1[10];\n};" "ReservedSlot reserved1[11];\n};")
abi_self_test(finds-another-argument
  "DIFFERS  AEGP_EffectSuite1::AEGP_ReorderEffect: another type.*2 different"
  "A_Err (*AEGP_ReorderEffect)(AEGP_EffectRefH, A_long index);"
  "A_Err (*AEGP_ReorderEffect)(AEGP_EffectRefH, A_short index);")
abi_self_test(finds-one-argument-more
  "DIFFERS  AEGP_UtilitySuite5::AEGP_EndUndoGroup: another type"
  "A_Err (*AEGP_EndUndoGroup)();" "A_Err (*AEGP_EndUndoGroup)(A_long);")
abi_self_test(finds-another-depth-of-pointers
  "DIFFERS  AEGP_StreamSuite1::AEGP_DisposeStream: another type"
  "A_Err (*AEGP_DisposeStream)(AEGP_StreamRefH);" "A_Err (*AEGP_DisposeStream)(AEGP_StreamRefH*);")
abi_self_test(finds-another-hook
  "DIFFERS  AEGP_RegisterSuite5::AEGP_RegisterIdleHook: another type"
  "AEGP_IdleRefcon, A_long* maxSleep)" "AEGP_IdleRefcon, A_Time* maxSleep)")
abi_self_test(finds-a-function-that-is-not-there
  "DIFFERS  AEGP_PanelSuite1::AEGP_IsShown: not there"
  "AEGP_IsShown" "AEGP_IsShownNow")
abi_self_test(finds-another-constant
  "DIFFERS  PF_Cmd_COMPLETELY_GENERAL: another value"
  "PF_Cmd_COMPLETELY_GENERAL = 17" "PF_Cmd_COMPLETELY_GENERAL = 18")
abi_self_test(finds-a-scalar-of-another-size
  "DIFFERS  AEGP_MenuID: another size, sign or depth"
  "using AEGP_MenuID = A_char" "using AEGP_MenuID = A_long")
abi_self_test(finds-a-scalar-of-another-sign
  "DIFFERS  AEGP_HookPriority: another size, sign or depth"
  "using AEGP_HookPriority = std::uint32_t" "using AEGP_HookPriority = std::int32_t")
