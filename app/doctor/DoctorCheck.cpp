#include "app/doctor/DoctorCheck.h"

#include "app/menu/DisplayText.h"
#include "base/Translation.h"
#include "platform/text/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace zv {

namespace {

using Json = nlohmann::ordered_json;

std::string_view textOf(DoctorCheck::State state)
{
    static constexpr std::string_view texts[] = { "ok", "limited", "missing" };
    return texts[static_cast<std::size_t>(state)];
}

std::string padded(std::string_view text, std::size_t width)
{
    auto const count = graphemeCount(text);
    return std::string(text) + std::string(width - std::min(width, count), ' ');
}

} // namespace

std::optional<std::string> noteOf(DoctorCheck const& check)
{
    if (check.state == DoctorCheck::State::ok)
        return std::nullopt;
    return check.remedy.empty() ? check.explanation : inSequence(check.explanation, check.remedy);
}

std::string doctorText(std::span<DoctorCheck const> checks)
{
    std::size_t width = 0;
    for (auto const& check : checks)
        width = std::max(width, graphemeCount(check.name));
    std::string text;
    for (auto const& check : checks) {
        text += padded(check.name, width) + "  " + padded(textOf(check.state), 7) + "  " + displayText(check.explanation) + "\n";
        if (!check.remedy.empty())
            text += std::string(width + 11, ' ') + displayText(check.remedy) + "\n";
    }
    return text;
}

std::string doctorJson(std::span<DoctorCheck const> checks)
{
    auto list = Json::array();
    for (auto const& check : checks) {
        Json entry { { "name", check.name }, { "state", textOf(check.state) }, { "explanation", check.explanation } };
        if (!check.remedy.empty())
            entry["remedy"] = check.remedy;
        list.push_back(std::move(entry));
    }
    return list.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace zv
