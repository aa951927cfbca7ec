# Settings that every target of ours shares: warnings, sanitizers, Qt's strictness, and the
# include root, so that a header is named by its room ("model/Shortcut.h").
function(hmatnik_target target)
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
        QT_NO_FOREACH QT_NO_KEYWORDS)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic
        $<$<BOOL:${HMATNIK_WARNINGS_AS_ERRORS}>:-Werror>)
    if(HMATNIK_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${HMATNIK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PUBLIC -fsanitize=${HMATNIK_SANITIZE})
        # Warns of a fence in Qt's headers, which the thread sanitizer can't follow.
        if(HMATNIK_SANITIZE MATCHES "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            target_compile_options(${target} PRIVATE -Wno-tsan)
        endif()
        get_target_property(type ${target} TYPE)
        if(HMATNIK_SANITIZE MATCHES "thread" AND type STREQUAL "EXECUTABLE")
            target_sources(${target} PRIVATE
                "${PROJECT_SOURCE_DIR}/tests/sanitizers/OwnMemoryForChildren.cpp")
        endif()
    endif()
    if(HMATNIK_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage)
        target_link_options(${target} PUBLIC --coverage)
    endif()
    if(HMATNIK_FUZZ) # lets the fuzzer see which code an input reaches
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
        target_link_options(${target} PUBLIC -fsanitize=fuzzer-no-link)
    endif()
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
endfunction()

# A room of the house: one static library, named after its folder (hmatnik_model for src/model).
function(hmatnik_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
    if(HMATNIK_SHARED_ROOMS)
        add_library(hmatnik_${name} SHARED ${ROOM_SOURCES})
        target_precompile_headers(hmatnik_${name} PRIVATE
            <QtCore> <algorithm> <charconv> <functional> <memory> <set> <thread> <variant> <vector>)
    else()
        add_library(hmatnik_${name} STATIC ${ROOM_SOURCES})
    endif()
    target_link_libraries(hmatnik_${name} PUBLIC ${ROOM_LINKS})
    hmatnik_target(hmatnik_${name})
endfunction()
