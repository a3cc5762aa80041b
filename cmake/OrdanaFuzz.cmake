# Each fuzz/<name>.cpp is one libFuzzer program, the target <name>.
if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "The fuzzers need Clang: use the preset fuzz")
endif()
file(GLOB ordana_fuzz_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/fuzz/*.cpp")
foreach(source IN LISTS ordana_fuzz_sources)
    cmake_path(GET source STEM name)
    add_executable(${name} "${source}")
    target_link_libraries(${name} PRIVATE ordana::ordana ordana_warnings)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests") # random objects and texts
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/fuzz")
endforeach()
if(ordana_fuzz_sources)
    # The library reports its edges too, or the fuzzer would steer by the harness alone.
    target_compile_options(ordana PRIVATE -fsanitize=fuzzer-no-link)
endif()
