#include "tests/app/shell/ProgramFixture.h"

namespace zv {

ProgramFixture::ProgramFixture() { front.keyboardLayout.set({ { { 14, "e" }, { 3, "f" }, { 7, "x" } } }); }
ProgramFixture::~ProgramFixture() = default;

void ProgramFixture::launch()
{
    app.emplace(machine.system(), front.surface());
    outcome = app->launch();
    machine.time.runTasks();
}

} // namespace zv
