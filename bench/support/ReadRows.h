#pragma once

#include <valgrind/callgrind.h>

#include <chrono>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

namespace ventlock::bench {

/// The columns of "MfrProtocols" as the programs name them.
inline constexpr const char* kProtocolColumns[] = {"MfrProtocolID", "TAVMfrNameID", "ProtocolId", "MfrId"};

/// What is done with each cell while the clock runs: as little as shows that it was there.
class Touch {
 public:
    void operator()(std::string_view text) noexcept { sum_ += text.size() + (text.empty() ? 0 : text[0]); }
    void operator()(int number) noexcept { sum_ += static_cast<std::size_t>(number); }
    void EndRow() noexcept {}

    [[nodiscard]] std::size_t Sum() const noexcept { return sum_; }

 private:
    std::size_t sum_ = 0;
};

/// What is done with each cell when the clock has stopped: "a|b\n" a row.
class WriteDown {
 public:
    void operator()(std::string_view text) { rows_.append(text).append("|"); }
    void operator()(int number) { (*this)(std::to_string(number)); }
    void EndRow() { rows_.back() = '\n'; }

    [[nodiscard]] const std::string& Rows() const noexcept { return rows_; }

 private:
    std::string rows_;
};

/// The main procedure of a program that reads rows: <program> <data source> <query> <answer>. `open(source)`
/// gives something that reads a query's rows with `Read(query, use)`. The answer is a file: the seconds that
/// one reading took without the connect, a line end and the rows, which are read once more for that.
/// Under callgrind the first reading is counted in a file of its own that has a label.
template <class Open>
int ReadRows(int count, char** arguments, Open&& open) {
    if (count != 4) return 2;
    try {
        const std::string query = arguments[2];
        auto reader = open(std::string(arguments[1]));
        Touch touch;
        CALLGRIND_START_INSTRUMENTATION;
        const auto begin = std::chrono::steady_clock::now();
        reader->Read(query, touch);
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
        CALLGRIND_DUMP_STATS_AT("first reading");
        WriteDown rows;
        reader->Read(query, rows);
        std::ofstream answer(arguments[3]);
        answer << passed.count() << '\n' << rows.Rows();
        return touch.Sum() > 0 && answer.flush() ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}

}  // namespace ventlock::bench
