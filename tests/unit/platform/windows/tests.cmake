ktr_add_contract_test(platform_windows_test
    windows/bring_to_front_test.cpp
    windows/files_test.cpp
    windows/handle_test.cpp
    windows/launch_test.cpp)
