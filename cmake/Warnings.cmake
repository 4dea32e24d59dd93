# Every target of the project links "palimbra_warnings". Message codes are four-character constants, which is why
# -Wno-multichar is there; nothing else is switched off.
add_library(palimbra_warnings INTERFACE)
target_compile_options(palimbra_warnings INTERFACE
	-Wall -Wextra -Wpedantic
	-Wcast-align -Wextra-semi -Wformat=2 -Wnon-virtual-dtor -Woverloaded-virtual -Wshadow -Wundef -Wvla
	-Wno-multichar)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
	target_compile_options(palimbra_warnings INTERFACE
		-Wduplicated-cond -Wlogical-op -Wsuggest-override)
endif()
# Warnings are errors where every compiler in use is known. On Haiku the system's own headers and whatever compiler a packager has
# come in, and a warning that is new must not stop them. CMake's own switch turns it off elsewhere, too:
# cmake --compile-no-warning-as-error
if(NOT DEFINED CMAKE_COMPILE_WARNING_AS_ERROR AND NOT CMAKE_SYSTEM_NAME STREQUAL "Haiku")
	set(CMAKE_COMPILE_WARNING_AS_ERROR ON)
endif()
