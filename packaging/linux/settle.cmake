# Run by CPack before it packs the tree: takes out of it what differs from build to build or is of use to nobody.
cmake_minimum_required(VERSION 3.25)

# The help book again, without the owners and times of access that its zip notes.
file(GLOB_RECURSE books ${CPACK_TEMPORARY_DIRECTORY}/*/Ventlock.hlp)
foreach(book IN LISTS books)
    if(NOT IS_SYMLINK ${book})
        execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/../bind_book.sh ${book} COMMAND_ERROR_IS_FATAL ANY)
    endif()
endforeach()

# The compilers' names in the programs.
file(GLOB programs ${CPACK_TEMPORARY_DIRECTORY}/usr/lib/ventlock/ventlock*)
foreach(program IN LISTS programs)
    execute_process(COMMAND strip --strip-unneeded --remove-section=.comment --remove-section=.note ${program}
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
