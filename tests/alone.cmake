# These wait for work in other threads: other tests at the same time would slow them down.
set_tests_properties(viewer.TestCellPictures catalogue.TestOpenCheck PROPERTIES RUN_SERIAL ON)
