# Compile options for everything of ours; no package carries them on.
add_library(VelmoraOptions INTERFACE)

if(NOT MSVC)
    target_compile_options(VelmoraOptions INTERFACE
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow
        $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast>
        $<$<BOOL:${VELMORA_WARNINGS_AS_ERRORS}>:-Werror>)
    # A reference that nothing defines is a fault of the link, not of the first call.
    if(NOT APPLE AND NOT VELMORA_SANITIZE)
        target_link_options(VelmoraOptions INTERFACE -Wl,--no-undefined)
    endif()
endif()

if(WIN32)
    target_compile_definitions(VelmoraOptions INTERFACE NOMINMAX)
endif()

if(VELMORA_SANITIZE)
    # Qt Gui is not linked, so the type information that the vptr check asks for is not there.
    add_compile_options(-fsanitize=${VELMORA_SANITIZE} -fno-sanitize=vptr
        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VELMORA_SANITIZE})
endif()
