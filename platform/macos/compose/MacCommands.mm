#import "platform/macos/compose/MacCommands.h"

#include "app/doctor/MacChecks.h"
#include "app/doctor/ProgramChecks.h"
#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/desk/SystemIconNames.h"

#include <utility>

namespace zv {

namespace {

/// The name of a picture, to be printed.
class PictureName : public Image {
public:
    explicit PictureName(std::string name)
        : m_name(std::move(name))
    {
    }
    std::string name() const override { return m_name; }

private:
    std::string m_name;
};

class PictureNames : public IconSource {
public:
    ImageRef fileIcon(Url const& file) override { return file.isFile() ? named(file.path()) : nullptr; }
    ImageRef systemIcon(SystemIcon icon) override { return named(std::string(nameOfSystemIcon(icon))); }
    ImageRef namedIcon(std::string const& name, ImageRef const& /*otherwise*/) override { return named(name); }
    ImageRef imageIn(Url const& file, ImageRef const& /*otherwise*/) override { return named(file.path()); }

private:
    static ImageRef named(std::string name) { return name.empty() ? nullptr : std::make_shared<PictureName>(std::move(name)); }
};

} // namespace

struct MacCommands::Turning {
    explicit Turning(MacFiles const& files)
        : machine(files)
        , system(machine.system())
    {
    }

    WorkCount pending;
    MacSystem machine;
    System system;
    PictureNames pictures;
    std::unique_ptr<TextMeasure> cells = makeCellTextMeasure();
};

MacCommands::MacCommands(Streams streams)
    : CommandContext(streams)
    , m_stored(m_files.files())
{
}

/// Stores the settings, which the system writes in its own time, before the process ends.
MacCommands::~MacCommands()
{
    forgetMenu();
    [NSUserDefaults.standardUserDefaults synchronize];
}

TurningSystem MacCommands::turningSystem()
{
    if (!m_turning)
        m_turning = std::make_unique<Turning>(m_files);
    return { .system = m_turning->system,
        .looks = { .text = *m_turning->cells, .icons = m_turning->pictures },
        .pending = m_turning->pending,
        .turnUntil = turnRunLoopUntil };
}

Url MacCommands::currentFolder() { return Url::fromPath(fromNSString(NSFileManager.defaultManager.currentDirectoryPath)); }

std::optional<std::string> MacCommands::fileToLink() { return fromNSString(NSBundle.mainBundle.executablePath); }

/// Asks the running program, which knows more; without an answer looks from outside.
MacFindings MacCommands::findings()
{
    auto const text = m_program.findings();
    auto const found = text ? decodedMacFindings(*text) : std::nullopt;
    return found ? *found : surveyThisMac();
}

std::vector<DoctorCheck> MacCommands::doctorChecks()
{
    auto checks
        = programChecks(m_program, m_stored.resources, *m_stored.disk, store(), { { KeptFolder::Holds::items, places().itemsFolder }, { KeptFolder::Holds::backups, places().backupsFolder } });
    for (auto& check : macChecks(findings()))
        checks.push_back(std::move(check));
    return checks;
}

} // namespace zv
