# PALIMBRA_SANITIZE instruments everything that is built here. The vptr check stays off: locking or posting to a looper
# that is gone is part of the kits' contract, and that check would read the object before the registry is asked.
if(PALIMBRA_SANITIZE)
	add_compile_options(-fsanitize=${PALIMBRA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize=vptr)
	add_link_options(-fsanitize=${PALIMBRA_SANITIZE})
	if(PALIMBRA_SANITIZE MATCHES "undefined")
		add_compile_options(-fno-sanitize-recover=undefined)
	endif()
endif()
# Fuzzers see which paths an input takes only in code that is instrumented for them, and bad accesses only with a sanitizer.
if(PALIMBRA_FUZZ)
	add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer
		-fno-sanitize=vptr -fno-sanitize-recover=undefined)
	add_link_options(-fsanitize=address,undefined)
endif()
