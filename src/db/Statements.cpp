#include "db/Statements.h"

#include "core/modCommonTools.h"

namespace ventlock::statements {

std::string Fill(std::string_view statement, std::initializer_list<std::string_view> values) {
    std::string filled(statement);
    for (const std::string_view value : values) filled = FillParam(filled, value);
    return filled;
}

}  // namespace ventlock::statements
