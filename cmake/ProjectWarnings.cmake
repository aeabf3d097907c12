# One interface target that every target links: the language level, the warnings and Qt's hygiene
# defines. -Werror is left to the CI flags so that a newer compiler never breaks a user's build.
# It is a build-only target: linked through $<BUILD_INTERFACE:...>, it never reaches the exported
# package, so a consumer's own warnings stay its own.
add_library(tarn_project_warnings INTERFACE)
target_compile_features(tarn_project_warnings INTERFACE cxx_std_17)
target_compile_options(tarn_project_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast)
# GCC 12 misreads the inlined append of Qt's sequential-container meta-type support as an
# overflow (QVector<T> with T larger than a pointer); the code it points at is Qt's own.
target_compile_options(tarn_project_warnings INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow>)
target_compile_definitions(tarn_project_warnings INTERFACE
    QT_NO_CAST_TO_ASCII
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
add_library(tarn::project_warnings ALIAS tarn_project_warnings)
