#include "platform/linux/updates/QtDownloads.h"

#include "platform/linux/toolkit/ErrorText.h"

#include <QFile>
#include <QNetworkReply>
#include <QPointer>
#include <QTimer>

#include <filesystem>

namespace zv {

namespace {

namespace fs = std::filesystem;

constexpr int mostRedirects = 5;

bool isAllowed(QUrl const& address, DownloadSchemes schemes)
{
    if (address.scheme() == QLatin1StringView("https"))
        return true;
    bool const isLocal = address.isLocalFile() || (address.scheme() == QLatin1StringView("http") && address.host() == QLatin1StringView("127.0.0.1"));
    return isLocal && schemes == DownloadSchemes::localToo;
}

/// A request, from its start to the one call of `done`. Lives as long as its Download.
class Transfer : public QObject {
public:
    using Sink = std::function<bool(QByteArray const&)>; ///< false when writing the bytes fails
    using Done = std::function<void(Result<void> const&)>;

    Transfer(QNetworkAccessManager& network, QUrl const& address, DownloadLimits const& limits, DownloadSchemes schemes, Sink sink, Done done)
        : m_limits(limits)
        , m_sink(std::move(sink))
        , m_done(std::move(done))
    {
        if (!isAllowed(address, schemes)) {
            QTimer::singleShot(0, this, [this] { finish(Failure { "the address is not one of https" }); });
            return;
        }
        QNetworkRequest request(address);
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
        request.setMaximumRedirectsAllowed(mostRedirects);
        // Requests carry no cookies, credentials, version or language: one user's look like another's.
        request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
        request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
        request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
        request.setHeader(QNetworkRequest::UserAgentHeader, QByteArray("Zanthe Vell"));
        request.setRawHeader("Accept-Language", "*");
        m_reply = network.get(request);
        m_reply->setReadBufferSize(1 << 18);
        connect(m_reply, &QIODevice::readyRead, this, [this] { take(); });
        connect(m_reply, &QNetworkReply::finished, this, [this] { replyFinished(); });
        watch();
    }

    ~Transfer() override
    {
        if (!m_reply)
            return;
        m_reply->disconnect(this);
        m_reply->abort();
        m_reply->deleteLater();
    }

private:
    void watch()
    {
        connect(&m_silence, &QTimer::timeout, this, [this] { finish(Failure { "the server does not answer" }); });
        m_silence.start(m_limits.silence);
        connect(&m_total, &QTimer::timeout, this, [this] { finish(Failure { "the server is too slow" }); });
        if (m_limits.total.count() > 0)
            m_total.start(m_limits.total);
    }

    void take()
    {
        m_silence.start(m_limits.silence);
        auto const bytes = m_reply->readAll();
        m_received += static_cast<std::uint64_t>(bytes.size());
        if (m_received > m_limits.bytes)
            return finish(Failure { "it is larger than it may be" });
        if (!m_sink(bytes))
            finish(Failure { "it cannot be written to disk" });
    }

    void replyFinished()
    {
        if (m_reply->error() != QNetworkReply::NoError)
            return finish(Failure { reasonOf(*m_reply) });
        if (m_reply->bytesAvailable() > 0)
            take();
        finish({});
    }

    static std::string reasonOf(QNetworkReply const& reply)
    {
        auto const status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (reply.error() == QNetworkReply::TooManyRedirectsError)
            return "the server sends round in circles";
        if (reply.error() == QNetworkReply::InsecureRedirectError)
            return "the server sends elsewhere than to an address of https";
        if (status >= 400)
            return "the server answers " + std::to_string(status);
        return reasonFrom(reply.errorString());
    }

    /// Calls `done`, which may destroy this object: nothing of it is touched afterwards.
    void finish(Result<void> const& outcome)
    {
        m_silence.stop();
        m_total.stop();
        if (m_reply)
            m_reply->disconnect(this);
        if (auto const done = std::exchange(m_done, nullptr))
            done(outcome);
    }

    DownloadLimits m_limits;
    Sink m_sink;
    Done m_done;
    QPointer<QNetworkReply> m_reply; ///< the network manager may delete it too
    QTimer m_silence;
    QTimer m_total;
    std::uint64_t m_received = 0;
};

/// Deletes the transfer in a later turn, so that its own callback may drop the download.
class QtDownload : public Download {
public:
    explicit QtDownload(Transfer* transfer)
        : m_transfer(transfer)
    {
    }
    ~QtDownload() override
    {
        if (!m_transfer)
            return;
        m_transfer->disconnect();
        m_transfer->deleteLater();
    }

private:
    QPointer<Transfer> m_transfer;
};

QUrl qUrl(Url const& url) { return QUrl(QString::fromStdString(url.toString()), QUrl::StrictMode); }

std::string fileNameFor(Url const& address)
{
    auto const text = address.toString();
    auto const path = text.substr(0, text.find_first_of("?#"));
    auto const name = QUrl::fromPercentEncoding(QByteArray::fromStdString(path.substr(path.rfind('/') + 1))).toStdString();
    bool const isUsable = !name.empty() && name.size() < 200 && name != "." && name != ".." && name.find('/') == std::string::npos;
    return isUsable ? name : "update";
}

constexpr char const* folderPrefix = "update-";

/// Removes earlier downloads, which a newer one replaces.
void removeEarlierDownloads(std::string const& folder)
{
    std::error_code ignored;
    for (auto const& entry : fs::directory_iterator(folder, ignored)) {
        if (entry.path().filename().string().starts_with(folderPrefix))
            fs::remove_all(entry.path(), ignored);
    }
}

} // namespace

QtDownloads::QtDownloads(std::string folder, DownloadSchemes schemes)
    : m_folder(std::move(folder))
    , m_schemes(schemes)
{
}

QNetworkAccessManager& QtDownloads::network()
{
    if (!m_network)
        m_network = std::make_unique<QNetworkAccessManager>();
    return *m_network;
}

std::unique_ptr<Download> QtDownloads::fetch(Url const& address, DownloadLimits const& limits, std::function<void(Result<Bytes>)> done)
{
    auto const bytes = std::make_shared<Bytes>();
    auto const sink = [bytes](QByteArray const& chunk) {
        auto const* begin = reinterpret_cast<std::byte const*>(chunk.constData());
        bytes->insert(bytes->end(), begin, begin + chunk.size());
        return true;
    };
    auto const finish = [bytes, done = std::move(done)](Result<void> const& outcome) { outcome ? done(std::move(*bytes)) : done(Failure { outcome.error() }); };
    return std::make_unique<QtDownload>(new Transfer(network(), qUrl(address), limits, m_schemes, sink, finish));
}

Result<Url> QtDownloads::makeFile(Url const& address) const
{
    std::error_code code;
    fs::create_directories(m_folder, code);
    removeEarlierDownloads(m_folder);
    auto pattern = m_folder + "/" + folderPrefix + "XXXXXX";
    if (code || !mkdtemp(pattern.data()))
        return Failure { std::string("there is no place to keep it") };
    return Url::fromPath(pattern + "/" + fileNameFor(address));
}

std::unique_ptr<Download> QtDownloads::fetchFile(
    Url const& address, DownloadLimits const& limits, std::function<void(std::uint64_t)> progress, std::function<void(Result<Url>)> done)
{
    auto const target = makeFile(address);
    auto const file = std::make_shared<QFile>(target ? QFile::decodeName(target->path().c_str()) : QString());
    bool const isOpen = target.ok() && file->open(QIODevice::WriteOnly | QIODevice::NewOnly);
    auto const sink = [file, isOpen, progress = std::move(progress)](QByteArray const& chunk) {
        bool const isWritten = isOpen && file->write(chunk) == chunk.size();
        if (isWritten && progress)
            progress(static_cast<std::uint64_t>(file->pos()));
        return isWritten;
    };
    auto const finish = [this, file, target, done = std::move(done)](Result<void> const& outcome) {
        bool const isWhole = file->isOpen() && file->flush();
        file->close();
        if (outcome && target.ok() && isWhole)
            return done(*target);
        if (target)
            discard(*target);
        done(Failure { outcome ? "it cannot be written to disk" : outcome.error() });
    };
    return std::make_unique<QtDownload>(new Transfer(network(), qUrl(address), limits, m_schemes, sink, finish));
}

void QtDownloads::discard(Url const& file)
{
    bool const isOurs = file.path().starts_with(m_folder + "/" + folderPrefix);
    std::error_code ignored;
    if (isOurs)
        fs::remove_all(file.parent().path(), ignored);
}

} // namespace zv
