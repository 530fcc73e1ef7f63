#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zv {

enum class SortDirection { ascending, descending };
enum class MetadataSearchScope { localComputer };

struct MetadataSearch {
    std::string queryString; ///< a metadata query string
    std::string sortKey;
    SortDirection sortDirection = SortDirection::descending;
    MetadataSearchScope scope = MetadataSearchScope::localComputer;
    std::size_t mostWanted = 0; ///< nobody looks at results beyond these
};

struct MetadataItem {
    std::optional<std::string> path;
    bool isDirectory = false;
    /// On a volume that may not answer: whoever uses the result must not touch it.
    bool isOnRemoteVolume = false;
};

/// One search of the system's index of files. Destroying it stops it. Main thread only,
/// callbacks too.
class MetadataQuery {
public:
    virtual ~MetadataQuery() = default;
    /// Gathers without blocking, then calls `onDidFinishGathering` once, in a later turn.
    virtual void start() = 0;
    virtual void stop() = 0;
    [[nodiscard]] virtual std::size_t resultCount() const = 0;
    /// In the order asked for.
    [[nodiscard]] virtual MetadataItem result(std::size_t index) const = 0;

    /// May destroy the query.
    std::function<void()> onDidFinishGathering;
};

class MetadataQueries {
public:
    virtual ~MetadataQueries() = default;
    [[nodiscard]] virtual std::unique_ptr<MetadataQuery> make(MetadataSearch const& search) = 0;
};

} // namespace zv
