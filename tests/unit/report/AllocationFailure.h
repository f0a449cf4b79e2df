// Lets an allocation of the C++ code in this test program fail, as if memory had run out.
#pragma once

namespace crashvane {

// While an object of this class lives, the n-th allocation from now (0 is the next one) and all later ones fail.
class AllocationFailure {
  public:
    explicit AllocationFailure(long nUntilFailure);
    AllocationFailure(const AllocationFailure&) = delete;
    AllocationFailure& operator=(const AllocationFailure&) = delete;
    ~AllocationFailure();

    // An allocation failed.
    [[nodiscard]] bool Happened() const;
};

}  // namespace crashvane
