#include "cli/Completion.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/RunTimeError.h"
#include "cli/SettingsCommands.h"
#include "platform/odbc/DataSources.h"

namespace ventlock {
namespace {

/// A name that is a word of a call, and a line of the answer.
bool IsOneLine(const std::string& name) {
    return !name.empty() && std::none_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
    });
}

/// What has been typed of a call, up to its last word.
class TypedCall {
 public:
    explicit TypedCall(const CommandDescription& program) : commands_{&program} {}

    void Add(const std::string& word) {
        if (awaited_ != nullptr) {
            awaited_ = nullptr;
        } else if (word == "--") {
            mayHaveOptions_ = false;
        } else if (MayBeOption(word)) {
            AddOption(word);
        } else if (const CommandDescription* next = Find(word)) {
            commands_.push_back(next);
        } else {
            ++arguments_;
        }
    }

    [[nodiscard]] bool MayBeOption(const std::string& word) const {
        return mayHaveOptions_ && word.starts_with('-');
    }

    /// The value that the last option still waits for, or nullptr.
    [[nodiscard]] const ValueDescription* Awaited() const { return awaited_; }

    /// The argument that comes next, or nullptr.
    [[nodiscard]] const ValueDescription* NextArgument() const {
        const auto& arguments = Command().arguments;
        if (arguments_ < arguments.size()) return &arguments[arguments_].value;
        return !arguments.empty() && arguments.back().isRepeated ? &arguments.back().value : nullptr;
    }

    [[nodiscard]] const CommandDescription& Command() const { return *commands_.back(); }

    /// The options that may stand here and have not been given, those of the command itself first.
    [[nodiscard]] std::vector<const OptionDescription*> Options() const {
        std::vector<const OptionDescription*> options;
        if (!mayHaveOptions_) return options;
        std::set<std::string> seen = given_;  // every command has a "--help" of its own
        for (auto command = commands_.rbegin(); command != commands_.rend(); ++command) {
            for (const OptionDescription& option : (*command)->options) {
                if (seen.insert(option.names.front()).second) options.push_back(&option);
            }
        }
        return options;
    }

    /// The option of a name, or nullptr.
    [[nodiscard]] const OptionDescription* FindOption(const std::string& name) const {
        for (auto command = commands_.rbegin(); command != commands_.rend(); ++command) {
            for (const OptionDescription& option : (*command)->options) {
                if (std::find(option.names.begin(), option.names.end(), name) != option.names.end())
                    return &option;
            }
        }
        return nullptr;
    }

 private:
    void AddOption(const std::string& word) {
        const std::size_t equals = word.find('=');
        const OptionDescription* option = FindOption(word.substr(0, equals));
        if (option == nullptr) return;
        given_.insert(option->names.front());
        if (option->value && equals == std::string::npos) awaited_ = &*option->value;
    }

    [[nodiscard]] const CommandDescription* Find(const std::string& name) const {
        const auto& commands = Command().commands;
        const auto found =
            std::find_if(commands.begin(), commands.end(),
                         [&](const CommandDescription& command) { return command.name == name; });
        return found == commands.end() ? nullptr : &*found;
    }

    std::vector<const CommandDescription*> commands_;  ///< from the program to the innermost
    std::size_t arguments_ = 0;
    bool mayHaveOptions_ = true;
    const ValueDescription* awaited_ = nullptr;
    std::set<std::string> given_;
};

/// Writes the candidates that begin as the word does.
class Answer {
 public:
    Answer(std::string word, std::ostream& out) : word_(std::move(word)), out_(out) {}

    void Offer(const std::string& candidate, const std::string& text) {
        if (IsOneLine(candidate) && candidate.starts_with(word_)) out_ << candidate << '\t' << text << '\n';
    }

    /// @param before  what stands in the same word before the value, e.g. "--dsn="
    void OfferValues(const ValueDescription& value, const std::string& before = "") {
        switch (value.source) {
            case ValueSource::Free:
                break;
            case ValueSource::Words:
                for (const std::string& word : value.words) Offer(before + word, "");
                break;
            case ValueSource::DataSources:
                OfferDataSources(before);
                break;
            case ValueSource::Settings:
            case ValueSource::ChangedSettings:
                for (const std::string& name : SettingNames(value.source == ValueSource::ChangedSettings))
                    Offer(before + name, "");
                break;
            case ValueSource::IniFiles:
                out_ << "\tini-files\n";
                break;
            case ValueSource::Files:
                out_ << "\tfiles\n";
                break;
        }
    }

 private:
    void OfferDataSources(const std::string& before) {
        std::vector<DataSource> sources;
        try {
            sources = ListDataSources();
        } catch (const RunTimeError&) {
            return;  // "database sources" tells why; the line that is being typed is no place for it
        }
        for (const DataSource& source : sources) Offer(before + source.name, source.driver);
    }

    std::string word_;
    std::ostream& out_;
};

}  // namespace

void WriteCompletions(const CommandDescription& program, const std::vector<std::string>& words,
                      std::ostream& out) {
    const std::string word = words.empty() ? "" : words.back();
    TypedCall call(program);
    for (std::size_t i = 0; i + 1 < words.size(); ++i) call.Add(words[i]);
    Answer answer(word, out);
    if (const ValueDescription* awaited = call.Awaited()) {
        answer.OfferValues(*awaited);
        return;
    }
    const std::size_t equals = word.find('=');
    if (call.MayBeOption(word) && equals != std::string::npos) {
        const OptionDescription* option = call.FindOption(word.substr(0, equals));
        if (option != nullptr && option->value) {
            answer.OfferValues(*option->value, word.substr(0, equals + 1));
        }
        return;
    }
    if (!call.MayBeOption(word)) {
        for (const CommandDescription& command : call.Command().commands) {
            answer.Offer(command.name, command.text);
        }
        const ValueDescription* argument = call.NextArgument();
        if (argument != nullptr) answer.OfferValues(*argument);
        if (argument != nullptr || !call.Command().commands.empty()) return;
    }
    for (const OptionDescription* option : call.Options()) {
        for (const std::string& name : option->names) answer.Offer(name, option->text);
    }
}

}  // namespace ventlock
