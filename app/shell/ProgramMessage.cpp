#include "app/shell/ProgramMessage.h"

#include "base/MainThread.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zv {

namespace {

using Json = nlohmann::ordered_json;
using Kind = ProgramMessage::Kind;

constexpr std::pair<Kind, std::string_view> names[] = {
    { Kind::showMenu, "showMenu" },
    { Kind::openSettings, "openSettings" },
    { Kind::quit, "quit" },
    { Kind::addFiles, "addFiles" },
    { Kind::hotkeys, "hotkeys" },
    { Kind::findings, "findings" },
};

/// Replaces invalid UTF-8: a failure may quote a file name, which is any bytes.
std::string textOf(Json const& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

Json parsed(std::string_view text) { return Json::parse(text, nullptr, false); }

std::optional<std::string> textAt(Json const& json, char const* key)
{
    if (!json.is_object())
        return std::nullopt;
    auto const found = json.find(key);
    return found != json.end() && found->is_string() ? std::optional(found->get<std::string>()) : std::nullopt;
}

std::optional<RunningProgram::ScreenPoint> pointFrom(Json const& json)
{
    if (!json.is_array() || json.size() != 2 || !json[0].is_number() || !json[1].is_number())
        return std::nullopt;
    RunningProgram::ScreenPoint const point { json[0].get<double>(), json[1].get<double>() };
    return std::isfinite(point.x) && std::isfinite(point.y) ? std::optional(point) : std::nullopt;
}

std::optional<std::vector<Url>> filesFrom(Json const& json)
{
    if (!json.is_array())
        return std::nullopt;
    std::vector<Url> files;
    for (auto const& each : json) {
        auto file = each.is_string() ? Url::parse(each.get<std::string>()) : std::nullopt;
        if (!file || !file->isFile())
            return std::nullopt;
        files.push_back(std::move(*file));
    }
    return files;
}

} // namespace

std::string encoded(ProgramMessage const& request)
{
    Json json { { "request", names[static_cast<std::size_t>(request.kind)].second } };
    if (request.at)
        json["at"] = { request.at->x, request.at->y };
    for (auto const& file : request.files)
        json["files"].push_back(file.toString()); // an address, as a path may hold bytes that no text may
    return textOf(json);
}

std::optional<ProgramMessage> decodedRequest(std::string_view text)
{
    auto const json = parsed(text);
    auto const name = textAt(json, "request");
    auto const* const known = std::find_if(std::begin(names), std::end(names), [&](auto const& each) { return each.second == name; });
    if (!name || known == std::end(names))
        return std::nullopt;
    ProgramMessage request { known->first };
    if (json.contains("at") && !(request.at = pointFrom(json["at"])))
        return std::nullopt;
    if (json.contains("files")) {
        auto files = filesFrom(json["files"]);
        if (!files)
            return std::nullopt;
        request.files = std::move(*files);
    }
    return request;
}

std::string encoded(ProgramAnswer const& answer) { return textOf(answer ? Json { { "done", *answer } } : Json { { "failed", answer.error() } }); }

std::optional<ProgramAnswer> decodedAnswer(std::string_view text)
{
    auto const json = parsed(text);
    if (auto done = textAt(json, "done"))
        return ProgramAnswer(std::move(*done));
    if (auto failed = textAt(json, "failed"))
        return ProgramAnswer(Failure { std::move(*failed) });
    return std::nullopt;
}

namespace {

ProgramAnswer answer(ProgramMessage request, ProgramHandlers const& handlers, Tasks& tasks)
{
    switch (request.kind) {
    case Kind::showMenu:
        tasks.runOnMain([show = handlers.showMenu, at = request.at] { show(at); });
        break;
    case Kind::openSettings:
        tasks.runOnMain(handlers.openSettings);
        break;
    case Kind::quit:
        tasks.runOnMain(handlers.quit);
        break;
    case Kind::addFiles:
        if (auto const added = handlers.addFiles(std::move(request.files)); !added)
            return Failure { added.error() };
        break;
    case Kind::hotkeys:
        return handlers.hotkeys();
    case Kind::findings:
        return handlers.findings();
    }
    return std::string();
}

} // namespace

std::string answerTo(std::string_view text, ProgramHandlers const& handlers, Tasks& tasks)
{
    assertMainThread();
    auto request = decodedRequest(text);
    return encoded(request ? answer(std::move(*request), handlers, tasks) : ProgramAnswer(Failure { std::string("That is no request.") }));
}

} // namespace zv
