# Windows programs made on Linux: mingw-w64 with posix threads, everything but the system's own DLLs linked statically.
# VENTLOCK_WINDOWS_ARCH is x86_64 or i686. Programs carry no time of their making, so that the same sources give the same bytes.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${VENTLOCK_WINDOWS_ARCH})
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VENTLOCK_WINDOWS_ARCH)
set(target ${VENTLOCK_WINDOWS_ARCH}-w64-mingw32)

set(CMAKE_C_COMPILER ${target}-gcc-posix)
set(CMAKE_CXX_COMPILER ${target}-g++-posix)
set(CMAKE_RC_COMPILER ${target}-windres)
# No time of making: the same source gives the same bytes. Aware of terminal servers: else the system would give each
# user there a Windows folder of his own.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp,--tsaware")
# Else the compiler's own libraries, which it names behind all others, are looked for as DLLs.
set(CMAKE_LINK_SEARCH_START_STATIC ON)
set(CMAKE_LINK_SEARCH_END_STATIC ON)

# Where the libraries are looked for, and nowhere else; programs are this machine's own.
execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/../packaging/windows/libraries.sh --folder ${VENTLOCK_WINDOWS_ARCH}
    OUTPUT_VARIABLE libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
if(NOT EXISTS ${libraries}/complete)
    message(FATAL_ERROR "First run packaging/windows/libraries.sh ${VENTLOCK_WINDOWS_ARCH}")
endif()
set(CMAKE_FIND_ROOT_PATH ${libraries} /usr/${target})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(wxWidgets_CONFIG_EXECUTABLE ${libraries}/bin/wx-config)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tests/support/wine/run.sh)
