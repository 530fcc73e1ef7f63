#include "app/doctor/DoctorCheck.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using State = DoctorCheck::State;

DoctorCheck const checks[] = {
    { "Tray", State::missing, "No tray.", "Install one." },
    { "Überblick", State::ok, "Fine.", "" },
    { "Keys", State::limited, "Some \"keys\".", "" },
};

TEST(Doctor, AlignsWhatItFound)
{
    EXPECT_EQ(doctorText(checks),
        "Tray       missing  No tray.\n"
        "                    Install one.\n"
        "Überblick  ok       Fine.\n"
        "Keys       limited  Some \"keys\".\n");
    EXPECT_EQ(doctorText({}), "");
}

TEST(Doctor, NotesForTheSettingsOnlyWhatIsAmiss)
{
    EXPECT_EQ(noteOf(checks[0]), "No tray. Install one.");
    EXPECT_EQ(noteOf(checks[1]), std::nullopt);
    EXPECT_EQ(noteOf(checks[2]), "Some \"keys\".");
}

TEST(Doctor, TellsItToPrograms)
{
    EXPECT_EQ(doctorJson(checks),
        R"([{"name":"Tray","state":"missing","explanation":"No tray.","remedy":"Install one."},)"
        R"({"name":"Überblick","state":"ok","explanation":"Fine."},)"
        R"({"name":"Keys","state":"limited","explanation":"Some \"keys\"."}])");
}

} // namespace
} // namespace zv
