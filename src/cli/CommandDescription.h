#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/ExitCode.h"
#include "platform/Host.h"

namespace ventlock {

/// What a value is taken from; a shell completes it by this.
enum class ValueSource {
    Free,             ///< anything
    Words,            ///< the words that the value names
    DataSources,      ///< names of the driver manager's data sources
    Settings,         ///< names of settings
    ChangedSettings,  ///< names of settings that the user changes
    IniFiles,         ///< paths of files "*.ini"
    Files,            ///< paths
};

/// A value of an option, or an argument that stands by itself.
struct ValueDescription {
    std::string name;  ///< as the help calls it, e.g. "FILE"
    ValueSource source = ValueSource::Free;
    std::vector<std::string> words;  ///< of ValueSource::Words
};

struct OptionDescription {
    std::vector<std::string> names;         ///< with their dashes, the long ones first
    std::optional<ValueDescription> value;  ///< none for a flag
    std::string text;                       ///< what it does, one sentence without a full stop
    std::string defaultValue;               ///< blank for none
    bool isRequired = false;
};

struct ArgumentDescription {
    ValueDescription value;
    std::string text;
    bool isRequired = false;
    bool isRepeated = false;
};

/// A command of the command line with all it takes; the whole of it is the program itself.
struct CommandDescription {
    std::string name;
    std::string text;  ///< what it does, one sentence
    std::vector<OptionDescription> options;
    std::vector<ArgumentDescription> arguments;
    std::vector<CommandDescription> commands;  ///< one of them has to follow when there are any
};

/// A call that shows what the program is for.
struct Example {
    std::string_view call;
    std::string_view text;  ///< one sentence
};

/// What an exit code promises.
struct ExitMeaning {
    ExitCode code;
    std::string_view text;
    std::string_view examples;  ///< when it comes, for readers of the guides; names stand between backquotes
};

/// The program's grammar, for whoever writes about it or completes calls of it.
CommandDescription DescribeCommandLine(Host& host);

std::span<const Example> Examples();
std::span<const ExitMeaning> ExitMeanings();

}  // namespace ventlock
