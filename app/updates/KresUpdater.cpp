#include "app/updates/KresUpdater.h"

#include "base/Base64.h"
#include "base/MainThread.h"
#include "base/Translation.h"

namespace zv {

namespace {

// The keys SUFeedURL and SUPublicEDKey: https://sparkle-project.org/documentation/customization
constexpr std::size_t signingKeySize = 32; // an Ed25519 public key, RFC 8032, section 5.1.5

std::string hostOf(std::string const& address)
{
    auto const start = address.find("://");
    if (start == std::string::npos)
        return {};
    auto const end = address.find_first_of("/?#:", start + 3);
    return address.substr(start + 3, end == std::string::npos ? end : end - start - 3);
}

bool isPlaceholder(std::string const& host)
{
    return host.ends_with(".example") || host.ends_with(".invalid") || host == "example.com" || host.ends_with(".example.com");
}

} // namespace

std::optional<Url> feedURL(PropertyListDictionary const& information)
{
    auto const* address = information.string("SUFeedURL");
    auto const url = address ? Url::parse(*address) : std::nullopt;
    if (!url)
        return std::nullopt;
    if (url->isFile())
        return url;
    auto const host = hostOf(url->toString());
    bool const isWeb = url->scheme() == "https" || url->scheme() == "http";
    return isWeb && !host.empty() && !isPlaceholder(host) ? url : std::nullopt;
}

std::optional<std::vector<std::byte>> updateSigningKey(PropertyListDictionary const& information)
{
    auto const* encoded = information.string("SUPublicEDKey");
    auto key = encoded ? fromBase64(*encoded) : std::nullopt;
    return key && key->size() == signingKeySize ? key : std::nullopt;
}

KresUpdater::KresUpdater(Services const& services)
    : m_resources(services.resources)
    , m_channels(services.resources)
    , m_reminder(services.reminder)
    , m_engine(services.makeEngine(m_channels, m_reminder))
    , m_checksAutomatically(m_engine->automaticallyChecksForUpdates())
    , m_lastCheckDate(m_engine->lastUpdateCheckDate())
{
    m_engine->onCanCheckChanged = [this] { takeCanCheck(); };
    m_engine->onAutomaticallyChecksChanged = [this] { takeChecksAutomatically(); };
    takeCanCheck();
}

void KresUpdater::start()
{
    assertMainThread();
    if (m_checksAutomatically)
        m_reminder.requestAuthorizationIfNeeded();
    m_reminder.showUpdateInFocus = [this] { m_engine->checkForUpdates(); };
    if (auto const started = m_engine->start(); !started)
        set(m_startFailureDescription, std::optional("KresUpdater: " + started.error()), startFailureProperty);
}

void KresUpdater::checkForUpdates()
{
    assertMainThread();
    m_engine->checkForUpdates();
}

bool KresUpdater::checksAutomatically() const
{
    m_registrar.access(checksAutomaticallyProperty);
    return m_checksAutomatically;
}

void KresUpdater::setChecksAutomatically(bool automatically)
{
    assertMainThread();
    if (m_engine->automaticallyChecksForUpdates() != automatically)
        m_engine->setAutomaticallyChecksForUpdates(automatically);
    set(m_checksAutomatically, automatically, checksAutomaticallyProperty);
    if (automatically)
        m_reminder.requestAuthorizationIfNeeded();
}

bool KresUpdater::canCheckForUpdates() const
{
    m_registrar.access(canCheckProperty);
    return m_canCheckForUpdates;
}

std::optional<WallTime> KresUpdater::lastCheckDate() const
{
    m_registrar.access(lastCheckProperty);
    return m_lastCheckDate;
}

std::optional<std::string> KresUpdater::startFailureDescription() const
{
    m_registrar.access(startFailureProperty);
    return m_startFailureDescription;
}

std::optional<std::string> KresUpdater::startProblem() const
{
    if (auto const failure = startFailureDescription())
        return failure;
    if (!feedURL(m_resources.information()))
        return tr("No appcast URL is set, so there is nothing to check against.");
    if (!updateSigningKey(m_resources.information()))
        return tr("No update signing key is set, so no update could be verified. Run Sparkle's generate_keys and put the public key in SUPublicEDKey.");
    return std::nullopt;
}

void KresUpdater::takeCanCheck()
{
    set(m_canCheckForUpdates, m_engine->canCheckForUpdates(), canCheckProperty);
    set(m_lastCheckDate, m_engine->lastUpdateCheckDate(), lastCheckProperty);
}

void KresUpdater::takeChecksAutomatically() { set(m_checksAutomatically, m_engine->automaticallyChecksForUpdates(), checksAutomaticallyProperty); }

} // namespace zv
