#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// A line of a form.
struct FormField {
    enum class Kind { text, toggle, choice };
    Kind kind = Kind::text;
    std::string id;
    std::string title;
    std::string text {}; ///< of a text, as it is and as it was typed
    std::string placeholder {};
    bool isOn = false; ///< of a toggle
    std::vector<std::string> choices {}; ///< of a choice
    std::size_t chosen = 0;
};

/// A few questions at once, and their words.
struct Form {
    std::string title;
    std::string note; ///< a sentence above the fields
    std::vector<FormField> fields;
    std::string accept;
    std::string cancel;
    /// Why the answers cannot be taken yet, a sentence; empty when they can.
    std::function<std::string(std::vector<FormField> const&)> problem;
};

/// Asks by a form. Main thread only.
class Forms {
public:
    virtual ~Forms() = default;
    /// The fields as they were filled in; nothing when the user cancelled.
    [[nodiscard]] virtual std::optional<std::vector<FormField>> ask(Form const& form) = 0;
};

} // namespace zv
