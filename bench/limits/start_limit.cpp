#include <sql.h>

#include <iostream>

/// What a program of this kind loads in any case, the C++ run time and the driver manager, and a line
/// printed.
int main(int count, char**) {
    if (count > 1000) SQLFreeHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE);  // so that the library is needed
    std::cout << "ventlock-cli 0.0.0 (64 bit)\n";
}
