// Turns exhausted memory into an ordinary failure, at the border between the steps of a run and what they call.
#pragma once

#include <new>
#include <stdexcept>

namespace crashvane {

// What the function returns, or 0 when there was no memory for its work.
template <typename Function>
int UnlessOutOfMemory(const Function& Work) {
    try {
        return Work();
    } catch (const std::bad_alloc&) {
        return 0;
    } catch (const std::length_error&) {
        return 0;
    }
}

}  // namespace crashvane
