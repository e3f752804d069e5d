# cmake -DCATALOGUE=… -DCURSOR=… -DFOLDER=… -P place_beside.cmake
# Puts the catalogue and the cursor where the program looks for them. A lunq.mdb that is there holds somebody's pictures:
# it stays untouched, whatever it is. The copy gets its name only when it is whole.
file(MAKE_DIRECTORY "${FOLDER}")
file(COPY_FILE "${CURSOR}" "${FOLDER}/s1.ico" ONLY_IF_DIFFERENT)
if(NOT EXISTS "${FOLDER}/lunq.mdb" AND NOT IS_SYMLINK "${FOLDER}/lunq.mdb")
  # A journal without its catalogue is the way back of pictures that somebody has moved, or lost: beside another lunq.mdb it
  # would be worthless, and SQLite would delete it.
  set(journal "${FOLDER}/lunq.mdb-journal")
  set(journal_size 0)
  if(EXISTS "${journal}")
    file(SIZE "${journal}" journal_size)
  endif()
  if(journal_size GREATER 0)
    message(FATAL_ERROR
      "${FOLDER}/lunq.mdb 不见了，但 ${journal} 还在：它是修复像册要用的。请把 lunq.mdb 放回它旁边；确实不要了，再删除它。\n"
      "${FOLDER}/lunq.mdb is missing, but ${journal} stands there, which belongs to it and repairs it. Please put lunq.mdb "
      "back beside it; delete the journal only if the album is no longer wanted.")
  endif()
  set(copy "${FOLDER}/lunq.mdb.part")
  file(REMOVE "${copy}")
  file(COPY_FILE "${CATALOGUE}" "${copy}")
  file(RENAME "${copy}" "${FOLDER}/lunq.mdb" NO_REPLACE RESULT refused)
  # Where renaming is done by linking, the first name is left over: a later copy onto it would reach into lunq.mdb.
  file(REMOVE "${copy}")
  if(refused AND NOT refused STREQUAL "NO_REPLACE")
    message(FATAL_ERROR "lunq.mdb could not be put into ${FOLDER}: ${refused}")
  endif()
  message(STATUS "A fresh lunq.mdb stands beside the program")
endif()
