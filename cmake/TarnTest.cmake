# tarn_add_test(<name> <sources...> [WITHOUT_WIDGETS]): one QtTest executable per test file,
# registered with CTest and run on the offscreen platform so that no display is needed. A test of
# the widget-free core says WITHOUT_WIDGETS and links its libraries itself.
function(tarn_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "WITHOUT_WIDGETS" "" "")
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    if(arg_WITHOUT_WIDGETS)
        target_link_libraries(${name} PRIVATE tarn::tarn2_util Qt5::Test tarn::project_warnings)
    else()
        target_link_libraries(${name} PRIVATE tarn::tarn2_specific tarn::tarn2_util
            tarn::tarn_core Qt5::Test Qt5::Widgets QCustomPlot::QCustomPlot
            tarn::project_warnings)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8"
        TIMEOUT 300)
endfunction()
