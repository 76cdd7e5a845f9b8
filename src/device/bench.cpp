#include "device/bench.h"

#include <utility>

namespace tqx {

Bench::Bench(LinkFactory factory)
    : Link(std::move(factory))
    , Bus(Link)
    , Coms(Link, Bus.BusCell)
    , Channels(Bus) {}

} // namespace tqx
