#pragma once

#include "base/Lifetime.h"
#include "platform/System.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// Puts dropped files into a folder, one after the other; asks before it replaces one, which then
/// goes to the Trash, and tells at the end what could not be done. Main thread only.
class FileDrop {
public:
    /// Both outlive it.
    FileDrop(System const& system, Desk const& desk)
        : m_system(system)
        , m_desk(desk)
    {
    }
    void put(std::vector<Url> const& files, Url const& folder, FileTransfer how);

private:
    struct Batch {
        std::deque<Url> files;
        Url folder;
        FileTransfer how;
        std::string problems {};
    };
    using BatchRef = std::shared_ptr<Batch>;

    void putNext(BatchRef const& batch);
    void replace(BatchRef const& batch, Url const& file, Url const& place);
    void transfer(BatchRef const& batch, Url const& file, Url const& place);
    void report(Batch const& batch);
    System const& m_system;
    Desk const& m_desk;
    Lifetime m_lifetime;
};

} // namespace zv
