#pragma once

#include "platform/program/Downloads.h"

#include <QNetworkAccessManager>

namespace zv {

enum class DownloadSchemes {
    httpsOnly,
    localToo, ///< file:// and http://127.0.0.1 as well, for tests
};

class QtDownloads : public Downloads {
public:
    /// Files are put into fresh folders below `folder`, which is made when first needed.
    QtDownloads(std::string folder, DownloadSchemes schemes);

    std::unique_ptr<Download> fetch(Url const& address, DownloadLimits const& limits, std::function<void(Result<Bytes>)> done) override;
    std::unique_ptr<Download> fetchFile(
        Url const& address, DownloadLimits const& limits, std::function<void(std::uint64_t)> progress, std::function<void(Result<Url>)> done) override;
    void discard(Url const& file) override;

private:
    [[nodiscard]] Result<Url> makeFile(Url const& address) const;
    [[nodiscard]] QNetworkAccessManager& network();

    std::string m_folder;
    DownloadSchemes m_schemes;
    std::unique_ptr<QNetworkAccessManager> m_network; ///< made for the first download, as most sessions have none
};

} // namespace zv
