#include <exception>
#include <iostream>

#include "peers/SimpleIniPeer.h"
#include "support/Files.h"

/// simpleini_upsert <file> <upserts as lines>
int main(int count, char** arguments) {
    using namespace ventlock::bench;
    if (count != 3) return 2;
    try {
        UpsertBySimpleIni(arguments[1], FromLines(ReadBytes(arguments[2])));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
