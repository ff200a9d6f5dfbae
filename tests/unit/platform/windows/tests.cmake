ktr_add_contract_test(platform_windows_test
    windows/handle_test.cpp
    windows/launch_test.cpp
    windows/named_mutex_test.cpp
    windows/paths_test.cpp
    windows/processes_test.cpp
    windows/replaced_import.h)
target_sources(platform_window_contract_test PRIVATE windows/window_test.cpp)

add_library(contract_error_mode MODULE fixtures/error_mode_library.cpp)
ktr_target_defaults(contract_error_mode)
set_target_properties(contract_error_mode PROPERTIES PREFIX "" SUFFIX ".dll")
add_dependencies(platform_windows_test contract_error_mode)
