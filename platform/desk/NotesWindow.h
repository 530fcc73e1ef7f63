#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// A rich text, opaque, with colours that suit the current appearance.
class RichText {
public:
    virtual ~RichText() = default;
    /// The height in points that the text takes when set that wide, font leading included.
    [[nodiscard]] virtual double height(double width) const = 0;
};

/// Sizes in points, of the content.
struct NotesWindowLayout {
    std::string title;
    std::string textName; ///< for assistive tools
    double width = 0;
    double height = 0;
    double minimumWidth = 0;
    double minimumHeight = 0;
    double textInset = 0; ///< around the text, on all sides
};

/// A window with selectable, scrolling text; titled, closable, resizable. Closing hides it.
class NotesWindow {
public:
    virtual ~NotesWindow() = default;
    virtual void bringToFront() = 0;
};

/// Main thread only.
class NotesWindows {
public:
    virtual ~NotesWindows() = default;
    /// Reads a document in Rich Text Format; null when it cannot be read.
    [[nodiscard]] virtual std::shared_ptr<RichText> read(std::vector<std::byte> const& rtf) = 0;
    /// Makes a window centred on the screen, not shown yet. `text` may be null.
    [[nodiscard]] virtual std::unique_ptr<NotesWindow> make(NotesWindowLayout const& layout, std::shared_ptr<RichText> const& text) = 0;
};

} // namespace zv
