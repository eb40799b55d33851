# The folder of an implementation for the host that the programs are built for.
if(WIN32)
    set(VENTLOCK_HOST win32)
else()
    set(VENTLOCK_HOST posix)
endif()

# One place for the flags that every target of the project is built with.

option(VENTLOCK_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)
option(VENTLOCK_FUZZ "Build the fuzz targets for clang's fuzzer, and nothing but what they need" OFF)
option(VENTLOCK_COVERAGE "Have the programs count which lines and branches they run" OFF)

add_library(ventlock_flags INTERFACE)
target_include_directories(ventlock_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(ventlock_flags INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
    -Wold-style-cast -Woverloaded-virtual -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 takes "text" + std::string for an overlapping copy once it is inlined.
    target_compile_options(ventlock_flags INTERFACE -Wno-restrict)
endif()
if(WIN32)
    # The system's headers as of Windows 10, without their rarely used parts and their macros "min" and "max".
    target_compile_definitions(ventlock_flags INTERFACE _WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX)
endif()
if(NOT WIN32)
    # What Debian builds its own programs with: a write beyond a buffer ends the program, and once it has started nobody
    # can change which functions it calls.
    target_compile_options(ventlock_flags INTERFACE
        $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2> $<$<CONFIG:Release>:-fstack-protector-strong>)
    target_link_options(ventlock_flags INTERFACE $<$<CONFIG:Release>:-Wl,-z,relro,-z,now>)
endif()
if(VENTLOCK_SANITIZE)
    target_compile_options(ventlock_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(ventlock_flags INTERFACE -fsanitize=address,undefined)
endif()
if(VENTLOCK_FUZZ)
    # What the fuzzer is guided by: which branches an input takes. Its own main comes with the targets in tests/fuzz.
    target_compile_options(ventlock_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VENTLOCK_COVERAGE)
    # Atomic: statements run on threads of their own.
    target_compile_options(ventlock_flags INTERFACE --coverage -fprofile-update=atomic -fprofile-abs-path)
    target_link_options(ventlock_flags INTERFACE --coverage)
endif()

# ventlock_library(<folder> SOURCES <file>... [USES <library>...])
# A folder of src/ is a library of the same name; USES names the floors below it and outside libraries.
function(ventlock_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
    add_library(ventlock_${name} STATIC ${ARG_SOURCES})
    target_link_libraries(ventlock_${name} PUBLIC ventlock_flags ${ARG_USES})
endfunction()

# ventlock_program(<target>)
# A program that users get. All of them, and the files they look for beside themselves, stand in bin/.
function(ventlock_program name)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    add_dependencies(${name} ventlock_program_files)
endfunction()

# ventlock_resources(<target> <script>)
# On Windows, what a program carries in itself: icon, version and manifest, by the resource script `script`. A library of
# its own, because the compiler's options mean nothing to the resource compiler.
function(ventlock_resources name script)
    if(NOT WIN32)
        return()
    endif()
    set(parts ${PROJECT_SOURCE_DIR}/packaging/windows)
    add_library(${name}_resources OBJECT ${script})
    target_include_directories(${name}_resources PRIVATE ${parts} ${wxWidgets_INCLUDE_DIRS})
    target_compile_definitions(${name}_resources PRIVATE
        VENTLOCK_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
        VENTLOCK_VERSION_MINOR=${PROJECT_VERSION_MINOR}
        VENTLOCK_VERSION_PATCH=${PROJECT_VERSION_PATCH})
    set_source_files_properties(${script} PROPERTIES
        OBJECT_DEPENDS "${parts}/program.rc;${parts}/program.manifest;${parts}/ventlock.ico")
    target_sources(${name} PRIVATE $<TARGET_OBJECTS:${name}_resources>)
endfunction()

# The help book is a zip of data/help. Names are sorted and the time of change is fixed, so that two books of the same
# pages differ only in what a zip notes of access times and owners.
set(VENTLOCK_HELP_BOOK ${PROJECT_BINARY_DIR}/bin/Ventlock.hlp)
file(GLOB help_pages CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/data/help ${PROJECT_SOURCE_DIR}/data/help/*/*)
list(SORT help_pages)
list(TRANSFORM help_pages PREPEND ${PROJECT_SOURCE_DIR}/data/help/ OUTPUT_VARIABLE help_page_paths)
add_custom_command(OUTPUT ${VENTLOCK_HELP_BOOK}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/bin
    COMMAND ${CMAKE_COMMAND} -E env TZ=UTC ${CMAKE_COMMAND} -E tar cf ${VENTLOCK_HELP_BOOK} --format=zip
            "--mtime=1980-01-01 00:00:00 UTC" -- ${help_pages}
    DEPENDS ${help_page_paths}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}/data/help
    COMMENT "Binding the help book"
    VERBATIM)

file(GLOB program_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/*.dct ${PROJECT_SOURCE_DIR}/data/schema/*.sql
     ${PROJECT_SOURCE_DIR}/data/schema/*/*.sql)
add_custom_target(ventlock_program_files
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/bin
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${PROJECT_SOURCE_DIR}/data/QorStandard.dct
            ${PROJECT_SOURCE_DIR}/data/Ventlock.dct ${PROJECT_BINARY_DIR}/bin
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/data/schema ${PROJECT_BINARY_DIR}/bin/schema
    DEPENDS ${VENTLOCK_HELP_BOOK}
    SOURCES ${program_files}
    COMMENT "Copying dictionaries and schema scripts beside the programs"
    VERBATIM)
