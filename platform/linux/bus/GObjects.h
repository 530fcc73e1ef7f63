#pragma once

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <memory>

namespace zv {

struct GObjectRelease {
    void operator()(gpointer object) const { g_object_unref(object); }
};
/// Owns one reference to a GObject.
template <class T> using GObjectRef = std::unique_ptr<T, GObjectRelease>;

struct GVariantRelease {
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
using GVariantRef = std::unique_ptr<GVariant, GVariantRelease>;

struct GErrorRelease {
    void operator()(GError* error) const { g_error_free(error); }
};
/// Receives a GError through out(), and frees it.
class GErrorSlot {
public:
    GErrorSlot() = default;
    GErrorSlot(GErrorSlot const&) = delete;
    GErrorSlot& operator=(GErrorSlot const&) = delete;
    ~GErrorSlot() { g_clear_error(&m_error); }

    [[nodiscard]] GError** out() { return &m_error; }
    [[nodiscard]] GError* get() const { return m_error; }
    explicit operator bool() const { return m_error != nullptr; }

private:
    GError* m_error = nullptr;
};

struct GMemoryRelease {
    void operator()(gpointer memory) const { g_free(memory); }
};
using GString8 = std::unique_ptr<char, GMemoryRelease>;

} // namespace zv
