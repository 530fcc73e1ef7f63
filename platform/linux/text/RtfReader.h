#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zv {

/// The content of a Rich Text Format file, as far as notes need it: paragraphs of runs. Fonts,
/// pictures, tables and styles are skipped.
struct RtfDocument {
    struct Color {
        std::uint8_t red = 0;
        std::uint8_t green = 0;
        std::uint8_t blue = 0;
    };
    struct Run {
        std::string text; ///< UTF-8; a line break within the paragraph is "\n"
        bool bold = false;
        bool italic = false;
        bool underline = false;
        double size = 12; ///< points
        std::optional<Color> color; ///< the default text colour without one
        std::string link; ///< empty for plain text
    };
    struct Paragraph {
        enum class Alignment { left, center, right };
        Alignment alignment = Alignment::left;
        double spaceBefore = 0; ///< points, as are the next three
        double spaceAfter = 0;
        double leftIndent = 0;
        double firstLineIndent = 0; ///< added to leftIndent; negative for a hanging bullet
        std::vector<Run> runs;
    };
    std::vector<Paragraph> paragraphs;
};

/// Nothing when the bytes do not begin like RTF. Damage further on loses only the damaged part.
/// Any thread.
[[nodiscard]] std::optional<RtfDocument> readRtf(std::span<std::byte const> bytes);

} // namespace zv
