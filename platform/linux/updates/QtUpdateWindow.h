#pragma once

#include "platform/program/UpdateWindow.h"

#include <memory>

namespace zv {

class QtUpdateWindow : public UpdateWindow {
public:
    QtUpdateWindow();
    ~QtUpdateWindow() override;

    void show(UpdatePage const& page) override;
    void bringToFront() override;
    void close() override;

private:
    class Dialog;
    std::unique_ptr<Dialog> m_dialog; ///< made when first shown
};

} // namespace zv
