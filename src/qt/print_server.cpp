#include "qt/print_server.h"

#ifdef VELMORA_CUPS
#include <cups/cups.h>
#include <cups/http.h>

#include <QLibrary>

#include <chrono>
#include <memory>
#endif

namespace velmora {

#ifdef VELMORA_CUPS

namespace {

/// A library of the system that is loaded only now: linked, it would come with every start, and
/// eighteen others with it.
class PrintSystem {
public:
    bool IsThere() { return library_.load(); }

    /// Its routine of this name and kind.
    template <typename Routine>
    Routine* Find(const char* name) {
        return reinterpret_cast<Routine*>(library_.resolve(name));
    }

private:
    QLibrary library_{QStringLiteral("cups"), 2};
};

}  // namespace

bool PrintServerAnswers() {
    using std::chrono::steady_clock;
    PrintSystem cups;
    if (!cups.IsThere()) return true;
    constexpr std::chrono::seconds kLimit{
        3};  // for the connection, and for each step of the answer
    constexpr int kLimitInMs = std::chrono::milliseconds(kLimit).count();
    const steady_clock::time_point start = steady_clock::now();
    const std::unique_ptr<http_t, decltype(&httpClose)> server(
        cups.Find<decltype(httpConnect2)>("httpConnect2")(
            cups.Find<decltype(cupsServer)>("cupsServer")(),
            cups.Find<decltype(ippPort)>("ippPort")(), nullptr, AF_UNSPEC,
            cups.Find<decltype(cupsEncryption)>("cupsEncryption")(), 1, kLimitInMs, nullptr),
        cups.Find<decltype(httpClose)>("httpClose"));
    if (!server) return steady_clock::now() - start < kLimit;
    cups.Find<decltype(httpSetTimeout)>("httpSetTimeout")(
        server.get(), kLimit.count(), [](http_t*, void*) { return 0; }, nullptr);
    if (cups.Find<decltype(httpGet)>("httpGet")(server.get(), "/") != 0) return false;
    auto* const update = cups.Find<decltype(httpUpdate)>("httpUpdate");
    http_status_t status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE) status = update(server.get());
    return status != HTTP_STATUS_ERROR;  // a refusal is an answer, too
}

#else

bool PrintServerAnswers() { return true; }

#endif

}  // namespace velmora
