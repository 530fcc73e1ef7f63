#pragma once

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <memory>
#include <string>

namespace zv {

/// Frees GLib's objects and memory.
struct GRelease {
    template <class Object> void operator()(Object* object) const { g_object_unref(object); }
    void operator()(char* text) const { g_free(text); }
    void operator()(char** texts) const { g_strfreev(texts); }
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
    void operator()(GSettingsSchemaSource* source) const { g_settings_schema_source_unref(source); }
};
/// Owns one reference to a GObject, or another GLib resource.
template <class T> using GObjectRef = std::unique_ptr<T, GRelease>;
using GVariantRef = GObjectRef<GVariant>;
using GString8 = GObjectRef<char>;

/// Takes ownership of a GLib text; empty for null.
[[nodiscard]] inline std::string taken(char* text)
{
    GString8 const owned(text);
    return owned ? owned.get() : "";
}

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

} // namespace zv
