ktr_add_contract_test(platform_posix_test
    posix/command_line_test.cpp
    posix/file_descriptor_test.cpp
    posix/launch_test.cpp
    posix/multibyte_text_test.cpp
    posix/named_mutex_test.cpp
    posix/processes_test.cpp
    posix/registry_file_test.cpp)
target_sources(platform_window_contract_test PRIVATE posix/window_test.cpp)
