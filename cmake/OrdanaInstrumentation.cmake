# Sanitizers apply to every target of the build: a race or an overflow is found only where both sides are watched.
if(ORDANA_SANITIZE)
    set(ordana_sanitize_flags -fsanitize=${ORDANA_SANITIZE} -fno-omit-frame-pointer)
    if(ORDANA_SANITIZE MATCHES "undefined")
        list(APPEND ordana_sanitize_flags -fno-sanitize-recover=undefined)
    endif()
    add_compile_options(${ordana_sanitize_flags})
    add_link_options(-fsanitize=${ORDANA_SANITIZE})
endif()
