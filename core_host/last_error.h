#pragma once

#include <exception>
#include <initializer_list>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include <QString>

namespace velmora {

// Leaves a reason, put together from its parts, in `lastError` and gives the false to return. What
// is no UTF-8 in a part, such as a path's odd byte, is replaced. With no memory left for the text
// the reason is that; it fits a string's own storage.
inline bool fail(std::string& lastError, std::initializer_list<std::string_view> parts) noexcept {
    try {
        std::string text;
        for (const std::string_view part : parts)
            text += part;
        lastError = QString::fromStdString(text).toStdString();
    } catch (...) {
        lastError = "Out of memory";
    }
    return false;
}

// Runs the work of an operation that reports through `lastError`: a throw is a failure like others.
template <class Work>
bool orFail(std::string& lastError, Work&& work) noexcept {
    try {
        return std::forward<Work>(work)();
    } catch (const std::bad_alloc&) {
        return fail(lastError, {"Out of memory"});
    } catch (const std::exception& exception) {
        return fail(lastError, {"Unexpected failure: ", exception.what()});
    } catch (...) {
        return fail(lastError, {"Unexpected failure"});
    }
}

} // namespace velmora
