# cmake -DCATALOGUE=… -DCURSOR=… -DFOLDER=… -P place_beside.cmake
# Copies the catalogue and the cursor to the program's folder. A lunq.mdb that exists there holds somebody's pictures: it
# is never touched. The copy gets its name only when it is whole.
file(MAKE_DIRECTORY "${FOLDER}")
file(COPY_FILE "${CURSOR}" "${FOLDER}/s1.ico" ONLY_IF_DIFFERENT)
if(NOT EXISTS "${FOLDER}/lunq.mdb" AND NOT IS_SYMLINK "${FOLDER}/lunq.mdb")
  # A journal without its catalogue can repair a catalogue that somebody has moved. Beside another lunq.mdb it would be of
  # no use, and SQLite would delete it.
  set(journal "${FOLDER}/lunq.mdb-journal")
  set(journal_size 0)
  if(EXISTS "${journal}")
    file(SIZE "${journal}" journal_size)
  endif()
  if(journal_size GREATER 0)
    message(FATAL_ERROR
      "${FOLDER}/lunq.mdb 不见了，但 ${journal} 还在：它是修复像册要用的。请把 lunq.mdb 放回它旁边；确实不要了，再删除它。\n"
      "${FOLDER}/lunq.mdb is missing, but ${journal} is there, which belongs to it and repairs it. Please put lunq.mdb "
      "back beside it; delete the journal only if the album is no longer wanted.")
  endif()
  set(copy "${FOLDER}/lunq.mdb.part")
  file(REMOVE "${copy}")
  file(COPY_FILE "${CATALOGUE}" "${copy}")
  file(RENAME "${copy}" "${FOLDER}/lunq.mdb" NO_REPLACE RESULT refused)
  # Renaming by a link leaves the first name: a later copy onto that name would overwrite lunq.mdb.
  file(REMOVE "${copy}")
  if(refused AND NOT refused STREQUAL "NO_REPLACE")
    message(FATAL_ERROR "lunq.mdb could not be put into ${FOLDER}: ${refused}")
  endif()
  message(STATUS "A fresh lunq.mdb is beside the program")
endif()
