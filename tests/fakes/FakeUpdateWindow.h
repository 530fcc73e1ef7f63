#pragma once

#include "platform/program/Downloads.h"
#include "platform/program/PackageOrigin.h"
#include "platform/program/UpdateWindow.h"

#include <deque>
#include <string>
#include <vector>

namespace zv::fakes {

class FakeUpdateWindow : public UpdateWindow {
public:
    void show(UpdatePage const& shown) override { page = shown; }
    void bringToFront() override { ++raised; }
    void close() override { page.reset(); }
    /// Presses the button with that title.
    bool press(std::string const& title)
    {
        for (std::size_t i = 0; page && i < page->buttons.size(); ++i) {
            if (page->buttons[i] == title) {
                onButton(i);
                return true;
            }
        }
        return false;
    }

    std::optional<UpdatePage> page; ///< none while closed
    int raised = 0;
};

class FakePackageOrigin : public PackageOrigin {
public:
    std::optional<std::string> owningPackage() const override { return package; }
    std::vector<std::string> packageEndings() const override { return { ".deb" }; }
    std::string systemVersion() const override { return "12"; }
    std::string operatingSystem() const override { return "linux"; }

    std::optional<std::string> package;
};

/// Requests wait until the test answers them.
class FakeDownloads : public Downloads {
public:
    struct Request : Download {
        explicit Request(FakeDownloads& o)
            : owner(o)
        {
        }
        ~Request() override
        {
            owner.feedDone = nullptr;
            owner.fileDone = nullptr;
        }
        FakeDownloads& owner;
    };

    std::unique_ptr<Download> fetch(Url const& address, DownloadLimits const&, std::function<void(Result<Bytes>)> done) override
    {
        requested.push_back(address.toString());
        auto request = std::make_unique<Request>(*this);
        feedDone = std::move(done);
        return request;
    }
    std::unique_ptr<Download> fetchFile(
        Url const& address, DownloadLimits const&, std::function<void(std::uint64_t)>, std::function<void(Result<Url>)> done) override
    {
        requested.push_back(address.toString());
        auto request = std::make_unique<Request>(*this);
        fileDone = std::move(done);
        return request;
    }
    void discard(Url const& file) override { discarded.push_back(file.path()); }

    /// Takes the callback out first: answering may end the request.
    void answerFeed(Result<Bytes> answer) { std::exchange(feedDone, nullptr)(std::move(answer)); }
    void answerFile(Result<Url> answer) { std::exchange(fileDone, nullptr)(std::move(answer)); }

    std::vector<std::string> requested;
    std::vector<std::string> discarded;
    std::function<void(Result<Bytes>)> feedDone;
    std::function<void(Result<Url>)> fileDone;
};

} // namespace zv::fakes
