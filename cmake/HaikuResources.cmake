# Haiku's tools: rc makes resources of their description, xres joins them to an executable, mimeset has the system note what they say.
foreach(tool rc xres mimeset)
	string(TOUPPER HAIKU_${tool} variable)
	find_program(${variable} ${tool} REQUIRED)
endforeach()

# haiku_resources(<executable> <description.rdef.in>): the description is configured, with the project's signature, version and icon. The
# executable is linked anew when they change, since what has been joined to it stays.
function(haiku_resources executable template)
	set(icon ${PROJECT_SOURCE_DIR}/packaging/haiku/icon.rdef)
	set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${icon})
	file(READ ${icon} PALIMBRA_ICON)
	set(description ${CMAKE_CURRENT_BINARY_DIR}/${executable}.rdef)
	configure_file(${template} ${description} @ONLY)

	set(resources ${CMAKE_CURRENT_BINARY_DIR}/${executable}.rsrc)
	add_custom_command(OUTPUT ${resources}
		COMMAND ${HAIKU_RC} -o ${resources} ${description}
		DEPENDS ${description}
		COMMENT "Making the program's resources")
	target_sources(${executable} PRIVATE ${resources})
	set_property(TARGET ${executable} APPEND PROPERTY LINK_DEPENDS ${resources})
	add_custom_command(TARGET ${executable} POST_BUILD
		COMMAND ${HAIKU_XRES} -o $<TARGET_FILE:${executable}> ${resources}
		COMMAND ${HAIKU_MIMESET} -f $<TARGET_FILE:${executable}>)
endfunction()
