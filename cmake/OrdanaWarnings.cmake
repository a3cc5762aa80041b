# Two interface targets that only our own code links to: an application never inherits our warnings.
#   ordana_warnings         tests, examples, benchmarks, fuzzers
#   ordana_strict_warnings  the library and its headers, where every narrowing must be written out

add_library(ordana_warnings INTERFACE)
target_compile_options(ordana_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow)
if(ORDANA_WERROR)
    target_compile_options(ordana_warnings INTERFACE -Werror)
endif()

add_library(ordana_strict_warnings INTERFACE)
target_link_libraries(ordana_strict_warnings INTERFACE ordana_warnings)
target_compile_options(ordana_strict_warnings INTERFACE -Wconversion -Wsign-conversion)
