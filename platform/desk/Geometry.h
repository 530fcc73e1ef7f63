#pragma once

/// Screen coordinates are in points; their origin is the bottom left corner of the primary
/// screen, y grows upwards.
namespace zv {

struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(Point const&, Point const&) = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double minX() const { return x; }
    [[nodiscard]] double minY() const { return y; }
    [[nodiscard]] double maxX() const { return x + width; }
    [[nodiscard]] double maxY() const { return y + height; }
    [[nodiscard]] bool isEmpty() const { return width <= 0 || height <= 0; }
    /// Grown by `margin` on every side.
    [[nodiscard]] Rect grownBy(double margin) const { return { x - margin, y - margin, width + 2 * margin, height + 2 * margin }; }

    friend bool operator==(Rect const&, Rect const&) = default;
};

} // namespace zv
