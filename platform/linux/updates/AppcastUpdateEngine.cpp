#include "platform/linux/updates/AppcastUpdateEngine.h"

#include "app/updates/KresUpdater.h"
#include "app/updates/UpdatePages.h"
#include "app/updates/UpdateTexts.h"
#include "base/Base64.h"
#include "base/Log.h"
#include "base/MainThread.h"
#include "platform/text/Signatures.h"

#include <algorithm>

namespace zv {

namespace {

using namespace std::chrono_literals;

constexpr char const* skippedVersionKey = "SUSkippedVersion";

DownloadLimits feedLimits()
{
    DownloadLimits limits;
    limits.bytes = 1'000'000;
    limits.total = 10s;
    return limits;
}

DownloadLimits packageLimits(AppcastItem const& item)
{
    DownloadLimits limits;
    limits.bytes = std::min<std::uint64_t>(item.downloadSize.value_or(500'000'000), 500'000'000);
    limits.silence = 30s;
    limits.total = 1h;
    return limits;
}

} // namespace

AppcastUpdateEngine::AppcastUpdateEngine(Services services, UpdateChannels& channels, UpdateUserDriver& userDriver)
    : m_services(services)
    , m_channels(channels)
    , m_userDriver(userDriver)
    , m_schedule({ services.defaults, services.clock, services.timers }, [this] { check(Asker::schedule); })
{
    m_services.window.onButton = [this](std::size_t button) { buttonPressed(button); };
}

AppcastUpdateEngine::~AppcastUpdateEngine() { m_services.window.onButton = nullptr; }

Result<void> AppcastUpdateEngine::start()
{
    assertMainThread();
    if (canCheckForUpdates())
        m_schedule.start();
    return {};
}

bool AppcastUpdateEngine::canCheckForUpdates() const
{
    auto const& information = m_services.resources.information();
    bool const isFree = m_state == State::idle || m_state == State::reminded || m_state == State::offering;
    return isFree && feedURL(information) && updateSigningKey(information);
}

bool AppcastUpdateEngine::automaticallyChecksForUpdates() const { return m_schedule.isEnabled(); }

void AppcastUpdateEngine::setAutomaticallyChecksForUpdates(bool automatically)
{
    m_schedule.setEnabled(automatically);
    if (onAutomaticallyChecksChanged)
        onAutomaticallyChecksChanged();
}

std::optional<WallTime> AppcastUpdateEngine::lastUpdateCheckDate() const { return m_schedule.lastCheck(); }

void AppcastUpdateEngine::enter(State state)
{
    m_state = state;
    if (onCanCheckChanged)
        onCanCheckChanged();
}

void AppcastUpdateEngine::checkForUpdates()
{
    assertMainThread();
    if (m_state == State::reminded || m_state == State::offering) {
        offer();
        return;
    }
    if (!canCheckForUpdates()) {
        if (m_state != State::idle)
            m_services.window.bringToFront();
        return;
    }
    m_services.application.activate();
    m_services.window.show(updatePages::checking());
    m_services.window.bringToFront();
    check(Asker::user);
}

void AppcastUpdateEngine::check(Asker asker)
{
    if (asker == Asker::schedule)
        m_schedule.noteCheck(); // whatever the result, the next one is a day away
    if (m_state != State::idle || !canCheckForUpdates())
        return;
    enter(State::checking);
    auto const feed = *feedURL(m_services.resources.information());
    m_download = m_services.downloads.fetch(feed, feedLimits(), [this, asker](Result<Downloads::Bytes> const& bytes) { feedArrived(asker, bytes); });
}

void AppcastUpdateEngine::feedArrived(Asker asker, Result<Downloads::Bytes> const& feed)
{
    auto const finished = std::move(m_download); // released at the end of this turn
    m_schedule.noteCheck();
    if (!feed)
        return failed(asker, feed.error());
    auto const signedFeed = SignedFeed::read(*feed);
    if (!signedFeed || !isOurs(*signedFeed))
        return failed(asker, tr(updateTexts::feedNotOurs));
    auto const items = readAppcast(signedFeed->content);
    if (!items)
        return failed(asker, tr(updateTexts::feedUnreadable, items.error()));
    if (auto const item = choose(asker, *items))
        found(asker, *item);
    else
        foundNothing(asker);
}

bool AppcastUpdateEngine::isOurs(SignedFeed const& feed) const
{
    auto const key = updateSigningKey(m_services.resources.information());
    return key && isSignedBy(*key, feed.signature, feed.content);
}

std::optional<AppcastItem> AppcastUpdateEngine::choose(Asker asker, std::vector<AppcastItem> const& items) const
{
    UpdateCriteria criteria;
    criteria.currentVersion = currentVersion();
    criteria.operatingSystem = m_services.origin.operatingSystem();
    criteria.systemVersion = m_services.origin.systemVersion();
    criteria.channels = m_channels.allowedChannels();
    criteria.packageEndings = m_services.origin.packageEndings();
    auto const skipped = m_services.defaults.object(skippedVersionKey);
    if (asker == Asker::schedule && skipped && skipped->string())
        criteria.skippedVersion = *skipped->string();
    return chooseUpdate(items, criteria);
}

void AppcastUpdateEngine::found(Asker asker, AppcastItem const& item)
{
    m_pending = item;
    bool const weShow = asker == Asker::user || m_userDriver.shouldHandleShowingScheduledUpdate(pendingItem(), false);
    enter(State::reminded);
    m_userDriver.willHandleShowingUpdate(weShow, pendingItem());
    if (weShow)
        offer();
}

void AppcastUpdateEngine::foundNothing(Asker asker)
{
    if (asker == Asker::schedule)
        return finishSession();
    tell(updatePages::upToDate(currentVersion()));
}

void AppcastUpdateEngine::failed(Asker asker, std::string const& reason)
{
    logLine("no updates: " + reason);
    if (asker == Asker::schedule)
        return finishSession();
    tell(updatePages::notLookedFor(reason));
}

void AppcastUpdateEngine::offer()
{
    enter(State::offering);
    m_services.application.activate();
    m_services.window.show(updatePages::offer(*m_pending, currentVersion(), m_services.origin.owningPackage()).page);
    m_services.window.bringToFront();
    m_userDriver.didReceiveUserAttention(pendingItem());
}

void AppcastUpdateEngine::offerAnswered(std::size_t button)
{
    using updatePages::OfferAnswer;
    auto const answers = updatePages::offer(*m_pending, currentVersion(), m_services.origin.owningPackage()).answers;
    switch (answers.at(std::min(button, answers.size() - 1))) {
    case OfferAnswer::install:
        return download();
    case OfferAnswer::openReleasePage:
        if (auto const page = Url::parse(m_pending->releasePage))
            m_services.workspace.open(*page);
        break;
    case OfferAnswer::skip:
        m_services.defaults.keep(skippedVersionKey, m_pending->version);
        break;
    case OfferAnswer::later:
        break;
    }
    finishSession();
}

void AppcastUpdateEngine::download()
{
    auto const address = Url::parse(m_pending->downloadAddress);
    if (!address)
        return tell(updatePages::withoutAddress());
    enter(State::downloading);
    showProgress(0);
    m_download = m_services.downloads.fetchFile(
        *address, packageLimits(*m_pending), [this](std::uint64_t received) { showProgress(received); },
        [this](Result<Url> const& file) { downloadArrived(file); });
}

void AppcastUpdateEngine::showProgress(std::uint64_t received)
{
    auto const size = m_pending->downloadSize.value_or(0);
    double const fraction = size > 0 ? static_cast<double>(received) / static_cast<double>(size) : -1;
    m_services.window.show(updatePages::downloading(*m_pending, fraction));
}

void AppcastUpdateEngine::downloadArrived(Result<Url> const& file)
{
    auto const finished = std::move(m_download);
    if (!file)
        return tell(updatePages::notDownloaded(file.error()));
    if (auto const verified = verify(*file); !verified) {
        m_services.downloads.discard(*file);
        return tell(updatePages::refused(verified.error()));
    }
    m_services.openPackage(*file, m_lifetime.guard([this, file = *file](Result<void> const& opened) { packageOpened(file, opened); }));
}

void AppcastUpdateEngine::packageOpened(Url const& file, Result<void> const& opened)
{
    if (opened)
        return finishSession();
    m_unopened = file;
    tell(updatePages::notOpened(file.lastPathComponent(), opened.error()));
}

Result<void> AppcastUpdateEngine::verify(Url const& file) const
{
    auto const key = updateSigningKey(m_services.resources.information());
    auto const signature = fromBase64(m_pending->signature);
    if (m_pending->signature.empty() || !signature)
        return Failure { tr(updateTexts::notSigned) };
    if (!key || !isSignedBy(*key, *signature, file))
        return Failure { tr(updateTexts::wronglySigned) };
    return {};
}

void AppcastUpdateEngine::tell(UpdatePage const& page)
{
    enter(State::told);
    m_services.window.show(page);
    m_services.window.bringToFront();
}

void AppcastUpdateEngine::buttonPressed(std::size_t button)
{
    if (m_state == State::offering)
        return offerAnswered(button);
    if (m_unopened && button == 0)
        m_services.workspace.reveal(*m_unopened);
    finishSession(); // "Cancel" or "OK"
}

void AppcastUpdateEngine::finishSession()
{
    m_download.reset();
    m_pending.reset();
    m_unopened.reset();
    m_services.window.close();
    m_userDriver.willFinishUpdateSession();
    enter(State::idle);
}

std::string AppcastUpdateEngine::currentVersion() const
{
    auto const* version = m_services.resources.information().string("CFBundleShortVersionString");
    return version ? *version : std::string();
}

UpdateItem AppcastUpdateEngine::pendingItem() const { return { m_pending->displayVersion.empty() ? m_pending->version : m_pending->displayVersion }; }

} // namespace zv
