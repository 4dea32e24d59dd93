# Every target of the project links "palimbra_warnings". Message codes are four-character constants, which is why
# -Wno-multichar is there; nothing else is switched off.
add_library(palimbra_warnings INTERFACE)
target_compile_options(palimbra_warnings INTERFACE
	-Wall -Wextra -Wpedantic -Werror
	-Wcast-align -Wextra-semi -Wformat=2 -Wnon-virtual-dtor -Woverloaded-virtual -Wshadow -Wundef -Wvla
	-Wno-multichar)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
	target_compile_options(palimbra_warnings INTERFACE
		-Wduplicated-cond -Wlogical-op -Wsuggest-override)
endif()
