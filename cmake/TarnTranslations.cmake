# tarn_add_translations(<target> <catalogue base> [ENGLISH_PLURALS] SOURCES <dirs and files...>)
# Compiles translations/<base>_<language>.ts into .qm files at build time and into <target> as the
# resources :/i18n/<base>_<language>.qm, installs the .qm files beside the package's data as well,
# and adds a tarn_lupdate_<base> target that refreshes the catalogues from SOURCES (the catalogues
# are edited in the source tree, so the build itself never rewrites them).
# ENGLISH_PLURALS adds translations/<base>_en.ts, which holds only the texts counted with %n: the
# English source texts are written in the plural, and this catalogue gives them their singular.
# Needs Qt5::LinguistTools found (the project finds it with the rest of Qt).
set(TARN_LANGUAGES de zh_CN CACHE STRING "Languages with a catalogue, besides the English source texts")
mark_as_advanced(TARN_LANGUAGES)

function(tarn_add_translations target base)
    cmake_parse_arguments(PARSE_ARGV 2 arg "ENGLISH_PLURALS" "" "SOURCES")
    set(catalogues)
    foreach(language IN LISTS TARN_LANGUAGES)
        list(APPEND catalogues ${PROJECT_SOURCE_DIR}/translations/${base}_${language}.ts)
    endforeach()
    set(english)
    if(arg_ENGLISH_PLURALS)
        set(english ${PROJECT_SOURCE_DIR}/translations/${base}_en.ts)
    endif()

    set_source_files_properties(${catalogues} ${english} PROPERTIES
        OUTPUT_LOCATION ${CMAKE_CURRENT_BINARY_DIR}/i18n)
    qt5_add_translation(compiled ${catalogues} ${english} OPTIONS -silent)

    # Written at configure time and compiled by a rule of its own rather than AUTORCC, so that
    # rcc runs after lrelease has made the files it lists.
    set(qrc ${CMAKE_CURRENT_BINARY_DIR}/${base}_i18n.qrc)
    set(entries)
    foreach(qm IN LISTS compiled)
        get_filename_component(name ${qm} NAME)
        string(APPEND entries "        <file>i18n/${name}</file>\n")
    endforeach()
    set(content "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n    <qresource prefix=\"/\">\n${entries}    </qresource>\n</RCC>\n")
    if(EXISTS ${qrc})
        file(READ ${qrc} old)
    endif()
    if(NOT old STREQUAL content)
        file(WRITE ${qrc} "${content}")
    endif()
    set_source_files_properties(${qrc} PROPERTIES SKIP_AUTORCC ON)
    qt5_add_resources(resource ${qrc})
    target_sources(${target} PRIVATE ${compiled} ${resource})
    install(FILES ${compiled} DESTINATION ${CMAKE_INSTALL_DATADIR}/tarn2_specific/translations)

    set(inputs)
    foreach(source IN LISTS arg_SOURCES)
        get_filename_component(absolute ${source} ABSOLUTE)
        list(APPEND inputs ${absolute})
    endforeach()
    # Locations are left out so that a moved line does not churn every catalogue.
    set(english_update)
    if(english)
        set(english_update COMMAND Qt5::lupdate -no-obsolete -locations none -pluralonly
            ${inputs} -ts ${english})
    endif()
    add_custom_target(tarn_lupdate_${base}
        COMMAND Qt5::lupdate -no-obsolete -locations none ${inputs} -ts ${catalogues}
        ${english_update}
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
        COMMENT "Refreshing the ${base} catalogues"
        VERBATIM)
    if(NOT TARGET tarn_lupdate)
        add_custom_target(tarn_lupdate)
    endif()
    add_dependencies(tarn_lupdate tarn_lupdate_${base})
endfunction()
