# Each bench/<name>_bench.cpp is one Google Benchmark program, the target <name>_bench. `counted` runs single workloads
# for a tool that counts instructions.
find_package(benchmark REQUIRED)
find_package(simdjson QUIET)
find_package(Boost 1.81 QUIET COMPONENTS json)

file(GLOB ordana_bench_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/bench/*_bench.cpp")
foreach(source IN LISTS ordana_bench_sources ITEMS "${PROJECT_SOURCE_DIR}/bench/counted.cpp")
    cmake_path(GET source STEM name)
    if(name STREQUAL "sqlite_bench" AND NOT TARGET ordana::sqlite)
        message(STATUS "sqlite_bench is left out: SQLite 3 was not found")
        continue()
    endif()
    add_executable(${name} "${source}")
    target_link_libraries(${name} PRIVATE ordana::ordana ordana_warnings benchmark::benchmark)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bench")
    file(STRINGS "${source}" has_main REGEX "int main")
    if(NOT has_main)
        target_link_libraries(${name} PRIVATE benchmark::benchmark_main)
    endif()
endforeach()

if(TARGET sqlite_bench)
    target_link_libraries(sqlite_bench PRIVATE ordana::sqlite "${ORDANA_SQLITE_LIBRARY}")
endif()

# The peers are optional; their headers are not ours to keep free of warnings.
if(TARGET workloads_bench)
    foreach(peer simdjson::simdjson Boost::json)
        if(TARGET ${peer})
            target_link_libraries(workloads_bench PRIVATE ${peer})
        endif()
    endforeach()
endif()
