// Counts what one thread takes from the heap, and refuses it from a chosen allocation on.
#pragma once

#include <cstddef>

namespace crashvane {

// While it lives, in the thread that made it; one at a time. The system's libraries have heaps of their own and are
// neither counted nor refused.
class AllocationWatch {
  public:
    enum Refusal { RefuseOnce, RefuseFromThereOn };

    // Counts only.
    AllocationWatch();
    // The uFailing-th allocation (from 1) throws bad_alloc, alone or with all that follow.
    AllocationWatch(std::size_t uFailing, Refusal Kind);
    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;
    ~AllocationWatch();

    [[nodiscard]] static std::size_t Count();
    [[nodiscard]] static std::size_t Bytes();    // all sizes asked for together
    [[nodiscard]] static std::size_t Refused();  // allocations
};

}  // namespace crashvane
