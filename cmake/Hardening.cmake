# What makes a fault that is still there harder to use: the program lies anywhere in memory, its tables are read-only once it runs, stack
# frames, calls by pointer and bounded copies are checked, and the standard library checks what it is asked for. Sanitizers and
# fuzzers look closer by themselves. On Haiku the packager's flags decide.
if(CMAKE_SYSTEM_NAME STREQUAL "Haiku")
	return()
endif()

# Not CMake's own switch: that makes libraries for shared objects of what only goes into programs, which is slower.
add_compile_options("$<$<NOT:$<STREQUAL:$<TARGET_PROPERTY:TYPE>,MODULE_LIBRARY>>:-fPIE>")
add_link_options("$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>")
add_compile_definitions(_GLIBCXX_ASSERTIONS)
if(PALIMBRA_SANITIZE OR PALIMBRA_FUZZ)
	return()
endif()

add_compile_options(-fstack-protector-strong)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
	add_compile_options(-fcf-protection=full)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64|arm64")
	add_compile_options(-mbranch-protection=standard)
endif()
# Needs an optimizing build, as all but Debug are.
if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
	add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()
add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
