# tarn_add_test(<name> <sources...>): one QtTest executable per test file, registered with CTest and
# run on the offscreen platform so that no display is needed.
function(tarn_add_test name)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE tarn::tarn2_specific tarn::tarn2_util tarn::tarn_core
        Qt5::Test Qt5::Widgets QCustomPlot::QCustomPlot tarn::project_warnings)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8"
        TIMEOUT 300)
endfunction()
