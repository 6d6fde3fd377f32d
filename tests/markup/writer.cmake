vellomark_add_test(
  writer_test
  SOURCES writer_break_flags_test.cpp
          writer_comment_test.cpp
          writer_depth_test.cpp
          writer_derived_test.cpp
          writer_element_test.cpp
          writer_file_test.cpp
          writer_option_test.cpp
          writer_page_test.cpp
          writer_pre_test.cpp
          writer_random_test.cpp
          writer_random_tree.cpp
          writer_reference.cpp
          writer_size_test.cpp
          writer_state_test.cpp
          writer_wrap_test.cpp
  LIBRARIES vellomark_xport vellomark_test_support)
