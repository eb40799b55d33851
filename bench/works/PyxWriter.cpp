#include "works/PyxWriter.h"

#include <stdexcept>

#include "core/clsLog.h"

namespace ventlock::bench {

PyxWriter::PyxWriter(const std::string& path) {
    auto log = std::make_shared<clsLog>(host_->Files(), host_->Clock(), host_->ConsoleMessages(),
                                        host_->EventLog(), host_->AppInfo());
    log->LogLevel = kLogToScreen;
    objects_.Add(kLogKey, log);
    manufacturer_.ManID = "26";
    manufacturer_.Name = "Acme";
    device_.ManID = "26";
    device_.DevID = "7";
    device_.DevName = "Flow";
    device_.DevRev = "1";
    device_.DDRev = "1";
    device_.ProtRev = "05";
    writer_.IniPath = path;
    writer_.DeviceDLL = "Dev.dll";
    writer_.DeviceHelp = "h.hlp";
}

void PyxWriter::Write() {
    writer_.Init(objects_, 2);
    if (!writer_.Insert(manufacturer_, device_)) throw std::runtime_error("the writer failed");
}

}  // namespace ventlock::bench
