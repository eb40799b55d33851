#include <exception>
#include <iostream>

#include "limits/UpsertLimit.h"
#include "support/Files.h"

/// upsert_limit <file> <upserts as lines>
int main(int count, char** arguments) {
    using namespace ventlock::bench;
    if (count != 3) return 2;
    try {
        UpsertAtTheLimit(arguments[1], FromLines(ReadBytes(arguments[2])));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
