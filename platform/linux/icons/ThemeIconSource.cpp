#include "platform/linux/icons/ThemeIconSource.h"

#include "base/MainThread.h"
#include "platform/linux/files/MountWatch.h"
#include "platform/linux/icons/IconPictures.h"
#include "platform/linux/icons/LaurelIcon.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/icons/SystemIconNames.h"

#include <QGuiApplication>

#include <utility>

namespace zv {

struct ThemeIconSource::FileLooks {
    FileIconNames of(std::string const& path) const { return iconNamesOfFile(path, mounts.current()->table, trust); }

    mutable MountWatch mounts;
    StartTrust trust;
};

namespace {

// Long enough for the menu that asked to be on screen, when the machine has time.
constexpr std::chrono::milliseconds secondLookDelay { 400 };

/// The name for callers that look the picture up themselves. Without a display the theme is
/// unknown: the best name stands.
std::string shownName(FileIconNames const& names)
{
    if (!names.imageFile.empty())
        return names.imageFile;
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return firstThemeName(names).toStdString();
    return names.names.empty() ? std::string() : names.names.front();
}

/// A picture that is known by its names.
class NamedImage : public ThemeImage {
public:
    NamedImage(std::shared_ptr<IconPictures> pictures, FileIconNames names)
        : m_pictures(std::move(pictures))
        , m_look(m_pictures->lookOf(std::move(names)))
    {
    }
    std::string name() const override { return shownName(m_look->names); }
    QIcon icon() const override { return m_pictures->picture(*m_look); }
    bool isReady() const override { return m_pictures->isDrawn(*m_look); }
    QPixmap drawnLarge(int size, qreal scale) const override { return m_pictures->large(m_look->names, size, scale); }

private:
    std::shared_ptr<IconPictures> m_pictures;
    std::shared_ptr<IconLook> m_look;
};

/// A picture that the user chose. Whether it is there is looked for when it is drawn.
class ChosenImage : public ThemeImage {
public:
    ChosenImage(std::shared_ptr<IconPictures> pictures, FileIconNames names, ImageRef otherwise)
        : m_pictures(std::move(pictures))
        , m_look(m_pictures->lookOf(std::move(names)))
        , m_otherwise(std::move(otherwise))
    {
    }
    std::string name() const override
    {
        auto const known = shownName(m_look->names);
        return known.empty() && m_otherwise ? m_otherwise->name() : known;
    }
    QIcon icon() const override
    {
        auto const picture = m_pictures->picture(*m_look);
        return m_look->isFound ? picture : menuIconOf(m_otherwise);
    }
    bool isReady() const override { return m_pictures->isDrawn(*m_look) && (m_look->isFound || isMenuIconReady(m_otherwise)); }
    QPixmap drawnLarge(int size, qreal scale) const override
    {
        auto const picture = m_pictures->large(m_look->names, size, scale);
        return picture.isNull() ? largePictureOf(m_otherwise, size, scale) : picture;
    }

private:
    std::shared_ptr<IconPictures> m_pictures;
    std::shared_ptr<IconLook> m_look;
    ImageRef m_otherwise;
};

/// The picture of a file, which is examined at the first drawing.
class FileImage : public ThemeImage {
public:
    FileImage(std::shared_ptr<IconPictures> pictures, std::shared_ptr<ThemeIconSource::FileLooks const> files, std::string path)
        : m_pictures(std::move(pictures))
        , m_files(std::move(files))
        , m_path(std::move(path))
    {
    }
    std::string name() const override { return shownName(look()->names); }
    QIcon icon() const override { return m_pictures->picture(*look()); }
    bool isReady() const override
    {
        auto const known = m_pictures->known(m_path);
        return known && m_pictures->isDrawn(*known);
    }
    QPixmap drawnLarge(int size, qreal scale) const override { return m_pictures->large(look()->names, size, scale); }

private:
    [[nodiscard]] std::shared_ptr<IconLook> look() const
    {
        auto known = m_pictures->known(m_path);
        return known ? known : m_pictures->remember(m_path, m_files->of(m_path));
    }

    std::shared_ptr<IconPictures> m_pictures;
    std::shared_ptr<ThemeIconSource::FileLooks const> m_files;
    std::string m_path;
};

class ApplicationImage : public ThemeImage {
public:
    std::string name() const override { return "org.zanthevell.ZantheVell"; }
    QIcon icon() const override { return laurelApplicationIcon(); }
    bool isReady() const override { return true; }
};

} // namespace

ThemeIconSource::ThemeIconSource(Tasks& tasks, Timers& timers, StartTrust trust)
    : m_tasks(tasks)
    , m_timers(timers)
    , m_files(new FileLooks { .mounts = MountWatch(), .trust = std::move(trust) })
    , m_pictures(std::make_shared<IconPictures>(tasks, timers))
{
}

ThemeIconSource::~ThemeIconSource() { m_pictures->stopReading(); }

ImageRef ThemeIconSource::fileIcon(Url const& file)
{
    assertMainThread();
    auto path = file.path();
    if (path.empty())
        return nullptr;
    if (m_pictures->known(path))
        lookAgainLater(path);
    return std::make_shared<FileImage>(m_pictures, m_files, std::move(path));
}

ImageRef ThemeIconSource::systemIcon(SystemIcon icon)
{
    if (icon == SystemIcon::application)
        return std::make_shared<ApplicationImage>();
    return std::make_shared<NamedImage>(m_pictures, iconNamesOf(icon));
}

ImageRef ThemeIconSource::categoryIcon(ApplicationCategory category) { return std::make_shared<NamedImage>(m_pictures, iconNamesOf(category)); }

ImageRef ThemeIconSource::namedIcon(std::string const& name, ImageRef const& otherwise)
{
    return std::make_shared<ChosenImage>(m_pictures, FileIconNames { { name }, {}, IconShape::none }, otherwise);
}

ImageRef ThemeIconSource::imageIn(Url const& file, ImageRef const& otherwise)
{
    return std::make_shared<ChosenImage>(m_pictures, FileIconNames { {}, file.path(), IconShape::none }, otherwise);
}

void ThemeIconSource::lookAgainLater(std::string const& path)
{
    m_toLookAt.push_back(path);
    if (m_toLookAt.size() == 1)
        m_secondLook = m_timers.after(secondLookDelay, m_lifetime.guard([this] { lookAgain(); }));
}

void ThemeIconSource::lookAgain()
{
    using Found = std::vector<std::pair<std::string, FileIconNames>>;
    auto const look = [paths = std::exchange(m_toLookAt, {}), files = m_files] {
        Found found;
        for (auto const& path : paths)
            found.emplace_back(path, files->of(path));
        return found;
    };
    m_tasks.inBackground(TaskPriority::utility, look, m_lifetime.guard([this](Found found) {
        for (auto& [path, names] : found)
            m_pictures->remember(path, std::move(names));
    }));
}

} // namespace zv
