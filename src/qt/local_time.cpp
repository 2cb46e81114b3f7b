#include "qt/local_time.h"

namespace velmora {

std::tm LocalTime(std::time_t moment) {
    static std::time_t looked_up = -1;
    std::tm local{};
#ifdef _WIN32
    if (moment != looked_up) _tzset();
    localtime_s(&local, &moment);
#else
    // The conversion itself looks the zone up once in the life of a process.
    if (moment != looked_up) tzset();
    localtime_r(&moment, &local);
#endif
    looked_up = moment;
    return local;
}

}  // namespace velmora
