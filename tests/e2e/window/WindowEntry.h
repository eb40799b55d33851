#pragma once

namespace ventlock::test {

/// What the tests type into the window, as the entry file that the command line writes the same from.
inline constexpr const char* kWindowEntry =
    "[Flow]\n"
    "ManID=26\n"
    "ManName=Acme\n"
    "ManDesc=Acme Inc\n"
    "Protocol=Conventional\n"
    "DevID=0A\n"
    "DevName=Flow\n"
    "DevDesc=Flow meter\n"
    "DevRev=02\n"
    "DDRev=03\n"
    "ProtRev=05\n"
    "DevRevName=R1\n"
    "DevRevDesc=First\n"
    "MajorCategory=Pressure\n"
    "MinorCategory=Gauge\n"
    "DLLName=Dev\n"
    "TemplateName=t\n"
    "DevHelp=h\n"
    "BlkHelp=b\n"
    "TAVVersions=5.0, 6.0\n";

}  // namespace ventlock::test
