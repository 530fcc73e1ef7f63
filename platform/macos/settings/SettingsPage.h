#pragma once

#import <Cocoa/Cocoa.h>

#include "app/settings/SettingsPage.h"
#import "platform/macos/settings/Controls.h"
#import "platform/macos/settings/RecorderField.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// Draws a page of settings with the system's controls. Rows that stay keep their control,
/// and with it the keyboard focus.
class SettingsPage {
public:
    /// `models` outlives it.
    explicit SettingsPage(SettingsModels& models);
    SettingsPage(SettingsPage const&) = delete;
    SettingsPage& operator=(SettingsPage const&) = delete;

    [[nodiscard]] NSView* view() const { return m_view; }
    void show(std::vector<SettingsSection> const& sections);

private:
    /// A control and its current row: the actions are replaced whenever the page is shown.
    struct Row {
        SettingsRow described;
        NSControl* control = nil; ///< nil for a recorder
        std::unique_ptr<RecorderField> recorder {};
    };
    using RowRef = std::shared_ptr<Row>;

    void build(std::vector<SettingsSection> const& sections);
    void addRow(std::string const& heading, SettingsRow const& described);
    [[nodiscard]] NSControl* controlFor(RowRef const& row);
    void addRecorder(RowRef const& row);
    [[nodiscard]] NSView* placed(Row const& row) const;
    static void take(Row& row, SettingsRow const& described);
    static void fillCommands(NSPopUpButton* button, SettingsRow const& described);
    static void fillChoices(NSPopUpButton* button, SettingsRow const& described);

    SettingsModels& m_models;
    NSView* m_content;
    NSScrollView* m_view;
    NSGridView* m_grid = nil;
    ControlActions m_actions;
    std::string m_shape;
    std::map<std::string, RowRef> m_rows;
};

} // namespace zv

NS_ASSUME_NONNULL_END
