// Counts what the test program takes from the heap through operator new.
#pragma once

#include <cstddef>

namespace crashvane::test {

// The most bytes that were held at once since the object was made, beyond what was held then.
class HeapPeak {
  public:
    HeapPeak();
    [[nodiscard]] std::size_t Bytes() const;

  private:
    std::size_t m_uBefore;
};

}  // namespace crashvane::test
