# Each bench/<name>.cpp is one Google Benchmark program, the target <name>.
find_package(benchmark REQUIRED)
file(GLOB ordana_bench_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/bench/*.cpp")
foreach(source IN LISTS ordana_bench_sources)
    cmake_path(GET source STEM name)
    add_executable(${name} "${source}")
    target_link_libraries(${name} PRIVATE ordana::ordana ordana_warnings benchmark::benchmark_main)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bench")
endforeach()
