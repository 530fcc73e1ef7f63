#pragma once

#include "platform/desk/Alerts.h"
#include "platform/desk/Application.h"
#include "platform/desk/ModifierKeys.h"
#include "platform/session/Workspace.h"
#include "tests/fakes/FakeTime.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zv::fakes {

class FakeModifierKeys : public ModifierKeys {
public:
    ModifierMask current() const override { return held; }
    ModifierMask ofCurrentEvent() const override { return atEvent; }
    ModifierMask held = ModifierMask::none;
    ModifierMask atEvent = ModifierMask::none;
};

class FakeWorkspace : public Workspace, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void open(Url const& url) override { log.push_back("open " + url.toString()); }
    void startUntrusted(UntrustedStart const& start, StartConsent consent) override
    {
        log.push_back((consent == StartConsent::always ? "always start " : "start ") + start.file.toString());
    }
    void reveal(Url const& fileURL) override { log.push_back("reveal " + fileURL.toString()); }
    std::optional<Url> applicationWithIdentifier(std::string_view identifier) const override
    {
        auto const found = applications.find(std::string(identifier));
        return found == applications.end() ? std::nullopt : std::optional(found->second);
    }
    void findApplicationsFor(Url const&, std::function<void(std::vector<InstalledApplication>)> done) override { answer(std::move(done), openers); }
    void openWith(Url const& file, Url const& application) override { log.push_back("open " + file.toString() + " with " + application.toString()); }
    void moveToTrash(Url const& file, std::function<void(Result<void>)> done) override
    {
        log.push_back("trash " + file.toString());
        answer(std::move(done), trashing);
    }
    void transfer(Url const& file, Url const& place, FileTransfer how, std::function<void(Result<void>)> done) override
    {
        static constexpr char const* names[] { "move ", "copy ", "link " };
        log.push_back(names[static_cast<std::size_t>(how)] + file.toString() + " to " + place.toString());
        answer(std::move(done), transferring);
    }
    void openNewInstance(Url const& application, std::function<void(Result<void>)> done) override
    {
        log.push_back("launch " + application.toString());
        answer(std::move(done), launching);
    }

    std::vector<std::string> log;
    std::map<std::string, Url> applications;
    std::vector<InstalledApplication> openers;
    Result<void> launching;
    Result<void> trashing;
    Result<void> transferring;
};

class FakeApplication : public Application {
public:
    void activate() override { log.emplace_back("activate"); }
    void terminate() override { log.emplace_back("terminate"); }
    bool isTerminating() const override { return terminating; }
    bool isActive() const override { return active; }
    bool isHidden() const override { return hidden; }
    ActivationPolicy activationPolicy() const override { return policy; }
    void setActivationPolicy(ActivationPolicy wanted) override
    {
        policy = wanted;
        log.emplace_back(wanted == ActivationPolicy::regular ? "regular" : "accessory");
    }
    std::vector<WindowState> windows() const override { return windowList; }

    bool terminating = false;
    bool active = false;
    bool hidden = false;
    ActivationPolicy policy = ActivationPolicy::accessory;
    std::vector<WindowState> windowList;
    std::vector<std::string> log;
};

/// Answers alerts with the buttons that the test queued, else with the first button.
class FakeAlerts : public Alerts {
public:
    std::size_t run(Alert const& alert) override
    {
        shown.push_back(alert);
        if (answers.empty())
            return 0;
        auto const answer = answers.front();
        answers.erase(answers.begin());
        return answer;
    }
    std::vector<Alert> shown;
    std::vector<std::size_t> answers;
};

} // namespace zv::fakes
