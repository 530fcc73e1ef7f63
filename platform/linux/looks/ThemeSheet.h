#pragma once

#include <QColor>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// A style sheet of a theme for GTK 3, as far as colours and the rows of menus need it: its named colours, and the
/// rules whose selectors name menus. Reads any text; what it does not know is skipped.
/// https://docs.gtk.org/gtk3/css-overview.html
class ThemeSheet {
public:
    /// Gives the text of an imported sheet by the address that the import names; empty when it is not there.
    using Import = std::function<std::string(std::string const& address)>;

    ThemeSheet(std::string_view text, Import const& import);

    /// The colour that the sheet has under the name ("theme_bg_color").
    [[nodiscard]] std::optional<QColor> color(std::string const& name) const;
    /// The last colour that a rule for one of the selectors gives to the property. A gradient counts as its mean.
    [[nodiscard]] std::optional<QColor> color(std::vector<std::string> const& selectors, std::string const& property) const;
    /// The first two lengths of the property in such a rule, in pixels.
    [[nodiscard]] std::vector<int> lengths(std::vector<std::string> const& selectors, std::string const& property) const;

private:
    void read(std::string_view text, Import const& import, int depth);
    void addRule(std::string_view selectors, std::string_view body);
    [[nodiscard]] std::string const* value(std::vector<std::string> const& selectors, std::string const& property) const;
    [[nodiscard]] std::optional<QColor> evaluated(std::string_view expression, int depth = 0) const;
    [[nodiscard]] std::optional<QColor> meanOf(std::vector<std::string_view> const& stops, int depth) const;
    [[nodiscard]] std::optional<QColor> called(std::string_view function, std::vector<std::string_view> const& arguments, int depth) const;

    struct Value {
        std::string text;
        int order = 0; ///< later rules win
    };
    std::map<std::string, std::string> m_colors;
    std::map<std::pair<std::string, std::string>, Value> m_values; ///< by selector and property
    int m_ruleCount = 0;
    int m_importCount = 0;
};

} // namespace zv
