#pragma once

#include "platform/linux/hotkeys/ChordRegistrar.h"
#include "platform/linux/posix/FileDescriptor.h"
#include "platform/menubar/KeyboardLayoutSource.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace zv {

/// Hotkeys by sway's own connection for programs: bindings that are made at run time, of which
/// sway tells as they are pressed. It takes any without a word, so what the configuration
/// mentions is never taken. Main thread only.
class SwayHotkeyRegistrar : public ChordRegistrar {
public:
    /// Null where no sway answers there. The layout outlives it.
    [[nodiscard]] static std::unique_ptr<SwayHotkeyRegistrar> open(std::string const& socket, KeyboardLayoutSource& layout);
    ~SwayHotkeyRegistrar() override;

    /// The combinations that a configuration mentions, in sway's words, in lower case and in order.
    [[nodiscard]] static std::set<QString> keysIn(QString const& configuration);

    /// The number of the keyboard's selected layout; nothing without a keyboard.
    [[nodiscard]] std::optional<std::uint32_t> layout() const;
    /// Called with it when another one has been selected, whoever has the keyboard.
    std::function<void(std::uint32_t)> onLayout;

protected:
    QString nameOf(KeyChord chord) const override;
    bool claim(KeyChord chord, QString const& name) override;
    void release(KeyChord chord, QString const& name) override;

private:
    SwayHotkeyRegistrar(FileDescriptor commands, FileDescriptor events, KeyboardLayoutSource& layout);
    void readConfiguration();
    void readEvents();
    void heard(std::uint32_t type, QByteArray const& event);
    [[nodiscard]] QByteArray ask(std::uint32_t type, QByteArray const& text) const;
    [[nodiscard]] bool isDone(QByteArray const& command) const;

    FileDescriptor m_commands;
    FileDescriptor m_events;
    KeyboardLayoutSource& m_layout;
    QSocketNotifier m_news;
    QByteArray m_unread; ///< the beginning of an event
    std::set<QString> m_mentioned; ///< by the configuration
};

} // namespace zv
