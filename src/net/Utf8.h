// Texts of the wire: UTF-16 inside the program, UTF-8 on the way to the server and back.
//
// What is no valid text becomes the replacement character; nothing is refused. Empty gives empty.
#pragma once

#include <string>
#include <string_view>

namespace crashvane {

// The whole text, embedded zeros too.
std::string ToUtf8(std::wstring_view strWide);

// As far as the first zero byte. A byte-order mark stays as the character it is.
std::wstring FromUtf8(const std::string& strUtf8);

}  // namespace crashvane
