# cmake -DROOT=<folder with src/> -P check_floors.cmake
# Fails when a folder of src/ includes from a folder above it, when anything outside platform/ includes one host's own
# headers, or when anything but ui/ includes a toolkit header.

cmake_minimum_required(VERSION 3.25)

# From the ground up; cli and ui stand side by side on the top floor.
set(floors base platform core db files entry)
set(top cli ui)
set(violations "")

function(check_file folder file allowed)
    file(STRINGS ${file} includes REGEX "^[ \t]*#[ \t]*include")
    foreach(include IN LISTS includes)
        if(include MATCHES "\"([a-z]+)/")
            set(target ${CMAKE_MATCH_1})
            if(NOT target IN_LIST allowed)
                list(APPEND violations "${file}: ${include}")
            endif()
        endif()
        if(include MATCHES "\"platform/(posix|win32)/" AND NOT file MATCHES "/platform/")
            list(APPEND violations "${file}: ${include}")
        endif()
        if(include MATCHES "[<\"]wx/" AND NOT folder STREQUAL "ui")
            list(APPEND violations "${file}: ${include}")
        endif()
    endforeach()
    set(violations "${violations}" PARENT_SCOPE)
endfunction()

function(check_folder folder allowed)
    file(GLOB_RECURSE files ${ROOT}/src/${folder}/*.h ${ROOT}/src/${folder}/*.cpp)
    foreach(file IN LISTS files)
        check_file(${folder} ${file} "${allowed}")
    endforeach()
    set(violations "${violations}" PARENT_SCOPE)
endfunction()

set(allowed "")
foreach(folder IN LISTS floors)
    list(APPEND allowed ${folder})
    check_folder(${folder} "${allowed}")
endforeach()
foreach(folder IN LISTS top)
    check_folder(${folder} "${allowed};${folder}")
endforeach()

file(GLOB folders LIST_DIRECTORIES true RELATIVE ${ROOT}/src ${ROOT}/src/*)
foreach(folder IN LISTS folders)
    if(IS_DIRECTORY ${ROOT}/src/${folder} AND NOT folder IN_LIST floors AND NOT folder IN_LIST top)
        list(APPEND violations "src/${folder} stands on no floor: give it one in check_floors.cmake")
    endif()
endforeach()

if(violations)
    list(JOIN violations "\n" text)
    message(FATAL_ERROR "A folder may include only from those below it:\n${text}")
endif()
