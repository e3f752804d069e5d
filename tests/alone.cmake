# These wait for work in other threads: beside other tests they would measure those.
set_tests_properties(viewer.TestCellPictures catalogue.TestOpenCheck PROPERTIES RUN_SERIAL ON)
