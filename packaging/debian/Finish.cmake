# Run by CPack on the installed files before they are packed: adds what Debian wants of a package, and gives every file the
# date of the sources, so that two builds of one commit are the same bytes.
set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share")
set(own "${CMAKE_CURRENT_LIST_DIR}")

# Debian's compression is the strongest, without the name and the date.
function(compress source target)
  execute_process(COMMAND gzip -9nc "${source}" OUTPUT_FILE "${target}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(GLOB pages "${root}/man/man1/*.1")
foreach(page IN LISTS pages)
  compress("${page}" "${page}.gz")
  file(REMOVE "${page}")
endforeach()
configure_file("${own}/copyright" "${root}/doc/pixorra/copyright" COPYONLY)
compress("${own}/changelog" "${root}/doc/pixorra/changelog.gz")
execute_process(COMMAND chmod -R "go=rX,u+w" "${CPACK_TEMPORARY_INSTALL_DIRECTORY}" COMMAND_ERROR_IS_FATAL ANY)

if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find "${CPACK_TEMPORARY_INSTALL_DIRECTORY}" -exec touch --no-dereference
    "--date=@$ENV{SOURCE_DATE_EPOCH}" {} + COMMAND_ERROR_IS_FATAL ANY)
endif()
