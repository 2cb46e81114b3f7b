#include "qt/print_server.h"

#ifdef VELMORA_CUPS
#include <cups/cups.h>
#include <cups/http.h>

#include <chrono>
#include <memory>
#endif

namespace velmora {

#ifdef VELMORA_CUPS

bool PrintServerAnswers() {
    using std::chrono::steady_clock;
    constexpr std::chrono::seconds kLimit{
        3};  // for the connection, and for each step of the answer
    constexpr int kLimitInMs = std::chrono::milliseconds(kLimit).count();
    const steady_clock::time_point start = steady_clock::now();
    const std::unique_ptr<http_t, decltype(&httpClose)> server(
        httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, kLimitInMs,
                     nullptr),
        &httpClose);
    if (!server) return steady_clock::now() - start < kLimit;
    httpSetTimeout(
        server.get(), kLimit.count(), [](http_t*, void*) { return 0; }, nullptr);
    if (httpGet(server.get(), "/") != 0) return false;
    http_status_t status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE) status = httpUpdate(server.get());
    return status != HTTP_STATUS_ERROR;  // a refusal is an answer, too
}

#else

bool PrintServerAnswers() { return true; }

#endif

}  // namespace velmora
