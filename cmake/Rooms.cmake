# ovrin_room(NAME SOURCES ... [DEPENDS ...] [PRIVATE_DEPENDS ...])
# One folder of src/ as one static library `ovrin_NAME`. Only what is named in DEPENDS may be included.
function(ovrin_room name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;PRIVATE_DEPENDS" ${ARGN})
    add_library(ovrin_${name} STATIC ${ARG_SOURCES})
    target_include_directories(ovrin_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(ovrin_${name} PUBLIC ${ARG_DEPENDS} PRIVATE ovrin_flags ${ARG_PRIVATE_DEPENDS})
    target_precompile_headers(ovrin_${name} PRIVATE <QtCore/QString> <QtCore/QObject> <QtCore/QList> <vector> <memory>)
endfunction()

# ovrin_program(NAME SOURCES ... [DEPENDS ...] [INSTALL_TO dir]): an executable called NAME.
function(ovrin_program name)
    cmake_parse_arguments(ARG "" "INSTALL_TO" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PRIVATE ovrin_flags ${ARG_DEPENDS})
    target_compile_definitions(${name} PRIVATE OVRIN_VERSION="${PROJECT_VERSION}")
    if(ARG_INSTALL_TO)
        install(TARGETS ${name} RUNTIME DESTINATION ${ARG_INSTALL_TO})
    endif()
endfunction()

# ovrin_test(NAME SOURCES ... DEPENDS ... [QT_MAIN]): one GoogleTest program, one entry in ctest.
# It links the room under test and nothing above it, so a wrong arrow between rooms fails to link.
function(ovrin_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;DEPENDS" ${ARGN})
    add_executable(test_${name} ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/tests/support/main.cpp)
    target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(test_${name} PRIVATE ovrin_flags ${ARG_DEPENDS} Qt6::Core GTest::gtest GTest::gmock)
    target_precompile_headers(test_${name} PRIVATE <gtest/gtest.h> <gmock/gmock.h> <QtCore/QString> <QtCore/QObject>)
    set_target_properties(test_${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests-bin)
    add_test(NAME ${name} COMMAND test_${name} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 300)
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT}
        ENVIRONMENT "ASAN_OPTIONS=detect_leaks=0;UBSAN_OPTIONS=print_stacktrace=1;QT_QPA_PLATFORM=offscreen")
endfunction()
