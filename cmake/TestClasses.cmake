# Writes a test for each class of a test program: run after the program is linked.
# PROGRAM, ROOM, ENVIRONMENT (a list) and OUTPUT are given.

execute_process(COMMAND "${PROGRAM}" --classes OUTPUT_VARIABLE classes COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" classes "${classes}")
set(tests "")
foreach(class IN LISTS classes)
  # A class is shown as skipped when all its tests were, because this machine lacks something.
  string(APPEND tests
    "add_test([==[${ROOM}.${class}]==] [==[${PROGRAM}]==] --class ${class})\n"
    "set_tests_properties([==[${ROOM}.${class}]==] PROPERTIES TIMEOUT 300 ENVIRONMENT [==[${ENVIRONMENT}]==]\n"
    "  SKIP_REGULAR_EXPRESSION \"Totals: 2 passed, 0 failed, [1-9][0-9]* skipped\")\n")
endforeach()
file(WRITE "${OUTPUT}" "${tests}")
