# The functions every CMakeLists.txt of this project builds its targets with: one place for warnings,
# sanitizers and include roots.

set(warnings -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual)
# g++ 12 takes `"text" + std::string` for overlapping copies (gcc.gnu.org/PR105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 14)
    list(APPEND warnings -Wno-restrict)
endif()
# A compiler newer than those we build with may warn of more: that must not keep a person from
# building.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15)
    list(APPEND warnings -Werror)
endif()

# What code that others generated is built with, too.
add_library(TolvaneInstrumentation INTERFACE)
# Indices and iterators are checked wherever speed is not the point.
target_compile_definitions(TolvaneInstrumentation INTERFACE
    $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
if(TOLVANE_SANITIZERS)
    target_compile_options(TolvaneInstrumentation INTERFACE
        -fsanitize=${TOLVANE_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(TolvaneInstrumentation INTERFACE -fsanitize=${TOLVANE_SANITIZERS})
    # What sanitizers add keeps g++ from seeing that variables are set (gcc.gnu.org/PR105562).
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        list(APPEND warnings -Wno-maybe-uninitialized)
    endif()
    # g++ warns that it does not see through the fences of Boost.Asio, which stand beside mutexes.
    if(TOLVANE_SANITIZERS MATCHES "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        list(APPEND warnings -Wno-tsan)
    endif()
endif()
if(TOLVANE_FUZZERS)
    # A fuzzer finds its way by what it sees of the branches taken.
    target_compile_options(TolvaneInstrumentation INTERFACE -fsanitize=fuzzer-no-link)
endif()

add_library(TolvaneFlags INTERFACE)
target_compile_options(TolvaneFlags INTERFACE ${warnings})
target_link_libraries(TolvaneFlags INTERFACE TolvaneInstrumentation)
# For the files of a target that also holds generated ones, which would not pass.
set(TOLVANE_WARNINGS ${warnings})

# Gives `target` an include root that holds nothing but a link to its own folder, so that a header
# of a library that is not linked cannot be included by accident.
function(tolvane_include_root target name)
    set(root ${CMAKE_BINARY_DIR}/include/${target})
    file(MAKE_DIRECTORY ${root})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)
    target_include_directories(${target} PUBLIC ${root})
endfunction()

# tolvane_library(HostKit AS HostKit SOURCES ... LINKS ... PRIVATE_LINKS ...)
function(tolvane_library target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "AS" "SOURCES;LINKS;PRIVATE_LINKS")
    add_library(${target} STATIC ${arg_SOURCES})
    tolvane_include_root(${target} ${arg_AS})
    target_link_libraries(${target} PUBLIC ${arg_LINKS} PRIVATE ${arg_PRIVATE_LINKS} TolvaneFlags)
endfunction()

# tolvane_qml_module(TolvaneComponents AS Components URI Tolvane.Components
#                    SINGLETONS ... QML ... SOURCES ... RESOURCES ... IMPORTS ... DEPENDENCIES ... LINKS ...)
# One QML module with the C++ behind it. Programs link `target` and `targetplugin` and import the plugin.
function(tolvane_qml_module target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "AS;URI"
        "SINGLETONS;QML;SOURCES;RESOURCES;IMPORTS;DEPENDENCIES;LINKS")
    string(REPLACE "." "/" folder ${arg_URI})
    set_source_files_properties(${arg_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
    qt_add_qml_module(${target}
        STATIC
        URI ${arg_URI}
        VERSION 1.0
        OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${folder}
        IMPORTS ${arg_IMPORTS}
        DEPENDENCIES ${arg_DEPENDENCIES}
        QML_FILES ${arg_SINGLETONS} ${arg_QML}
        SOURCES ${arg_SOURCES}
        RESOURCES ${arg_RESOURCES})
    tolvane_include_root(${target} ${arg_AS})
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    set_source_files_properties(${arg_SOURCES} PROPERTIES COMPILE_OPTIONS "${TOLVANE_WARNINGS}")
    target_link_libraries(${target} PUBLIC ${arg_LINKS} PRIVATE TolvaneInstrumentation)
endfunction()

# tolvane_test(HostKitTests SOURCES ... LINKS ... LABELS ...): one test program, each of its cases known
# to ctest. A label tells which runs take it: "threads" is what the thread sanitizer is to watch,
# "traced" what traces, preloads or changes namespaces, which sanitizers do not bear.
add_custom_target(ThreadedTests)
function(tolvane_test target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;LABELS")
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE ${arg_LINKS} TestSupport GTest::gmock_main TolvaneFlags)
    set(properties TIMEOUT 120)
    if(arg_LABELS)
        list(APPEND properties LABELS "${arg_LABELS}")
    endif()
    if("threads" IN_LIST arg_LABELS)
        add_dependencies(ThreadedTests ${target})
    endif()
    gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60 PROPERTIES ${properties})
endfunction()

# tolvane_test_inside(mounts VolumeTests SOURCES ... LINKS ... TIMEOUT 10): as tolvane_test, each case
# run in namespaces of its own, and skipped where the system refuses them.
function(tolvane_test_inside kind target)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "TIMEOUT" "SOURCES;LINKS")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 10)
    endif()
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE ${arg_LINKS} TestSupport GTest::gmock_main TolvaneFlags)
    set_target_properties(${target} PROPERTIES
        CROSSCOMPILING_EMULATOR "${PROJECT_SOURCE_DIR}/Tests/Support/inside;${kind}")
    gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT ${arg_TIMEOUT} SKIP_RETURN_CODE 77)
endfunction()

# tolvane_quick_test(ComponentsTests SOURCES ... LINKS ...): the tst_*.qml beside it, run by Qt Quick
# Test; `LINKS` names the QML modules and their plugins.
function(tolvane_quick_test target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    add_executable(${target} ${arg_SOURCES})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_compile_definitions(${target} PRIVATE
        QUICK_TEST_SOURCE_DIR="${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(${target} PRIVATE ${arg_LINKS} Qt6::QuickTest TolvaneFlags)
    add_test(NAME ${target} COMMAND ${target})
    set_tests_properties(${target} PROPERTIES TIMEOUT 120)
endfunction()
