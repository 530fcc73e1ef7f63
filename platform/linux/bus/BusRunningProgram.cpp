#include "platform/linux/bus/BusRunningProgram.h"

#include <cmath>
#include <utility>

namespace zv {

namespace {

constexpr BusObject program { "org.zanthevell.ZantheVell", "/org/zanthevell/ZantheVell", "org.zanthevell.ZantheVell" };
constexpr std::chrono::seconds patience { 5 };

/// Takes ownership of a floating value, so that it is freed even when unused.
GVariantRef owned(GVariant* floating) { return GVariantRef(floating ? g_variant_ref_sink(floating) : nullptr); }

} // namespace

BusConnection const* BusRunningProgram::bus() const
{
    if (!m_isConnected)
        m_bus = BusConnection::open(m_address, Deadline(patience));
    m_isConnected = true;
    return m_bus ? &*m_bus : nullptr;
}

Result<GVariantRef> BusRunningProgram::ask(char const* method, GVariantRef arguments, char const* replyType, BusConnection::Starting starting)
{
    auto const* const session = bus();
    if (!session)
        return Failure { m_texts.noConnection };
    auto reply = session->call(program, method, arguments.get(), Deadline(patience), replyType, starting);
    if (reply)
        return std::move(reply).value();
    if (!isRunning())
        return Failure { m_texts.notRunning };
    return Failure { m_texts.refused(reply.error().message) };
}

Result<void> BusRunningProgram::tell(char const* method, GVariant* arguments, BusConnection::Starting starting)
{
    auto const answer = ask(method, owned(arguments), nullptr, starting);
    if (!answer)
        return Failure { answer.error() };
    return {};
}

bool BusRunningProgram::isRunning() const
{
    auto const* const session = bus();
    return session && session->hasOwner(program.service, Deadline(patience));
}

/// A program without a token may still show itself, so nobody hears of a failure.
void BusRunningProgram::handTokenOver()
{
    if (!m_activationToken.empty())
        (void)tell("TakeActivationToken", g_variant_new("(s)", std::exchange(m_activationToken, {}).c_str()), BusConnection::Starting::allowed);
}

Result<void> BusRunningProgram::showMenu(std::optional<ScreenPoint> at)
{
    handTokenOver();
    if (!at)
        return tell("ShowMenu", nullptr, BusConnection::Starting::allowed);
    return tell(
        "ShowMenuAt", g_variant_new("(ii)", static_cast<int>(std::lround(at->x)), static_cast<int>(std::lround(at->y))), BusConnection::Starting::allowed);
}

Result<void> BusRunningProgram::openSettings()
{
    handTokenOver();
    return tell("OpenSettings", nullptr, BusConnection::Starting::allowed);
}

Result<void> BusRunningProgram::quit() { return tell("Quit", nullptr, BusConnection::Starting::forbidden); }

/// Sends the files as addresses: a path may hold bytes that no text on a bus may.
Result<void> BusRunningProgram::addFiles(std::vector<Url> const& files)
{
    std::vector<char const*> addresses;
    for (auto const& file : files)
        addresses.push_back(file.toString().c_str());
    return tell(
        "AddFiles", g_variant_new("(@as)", g_variant_new_strv(addresses.data(), static_cast<gssize>(addresses.size()))), BusConnection::Starting::forbidden);
}

Result<std::string> BusRunningProgram::hotkeys()
{
    auto const answer = ask("Hotkeys", nullptr, "(s)", BusConnection::Starting::forbidden);
    if (!answer)
        return Failure { answer.error() };
    char const* json = nullptr;
    g_variant_get(answer->get(), "(&s)", &json);
    return std::string(json);
}

} // namespace zv
