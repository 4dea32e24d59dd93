# palimbra_interpose(<suite>): the suite's calls of these functions go through support/InterposedCalls.cpp.
function(palimbra_interpose suite)
	target_sources(${suite} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/InterposedCalls.cpp)
	foreach(call socket connect send recv setsockopt getaddrinfo
			_Z11system_timev _Z12spawn_threadPFiPvEPKciS_ _Z6snoozel)
		target_link_options(${suite} PRIVATE -Wl,--wrap=${call})
	endforeach()
endfunction()
