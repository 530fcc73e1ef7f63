#pragma once

#include <functional>
#include <string>

namespace zv {

/// The known facts about this computer; empty where unknown.
struct ComputerFacts {
    std::string system; ///< "Debian GNU/Linux 12 (bookworm)"
    std::string kernel;
    std::string machine; ///< maker and model
    std::string processor;
    std::string memory;
    std::string graphics;
};

/// Gathers those facts. Main thread only.
class ComputerInfo {
public:
    virtual ~ComputerInfo() = default;
    /// Calls `done` once, on the main thread: before it returns, or later.
    virtual void gather(std::function<void(ComputerFacts)> done) = 0;
};

} // namespace zv
