#pragma once

#include "entry/EntryForm.h"

namespace ventlock::test {

/// A form with every field filled and nothing chosen from the database's lists: manufacturer 26 Acme, type 7
/// Flow, revision 1.
inline EntryForm FilledForm() {
    EntryForm form;
    form.txtMain[kDataSourceBox] = "PYX";
    form.txtMain[kDDInstallPathBox] = "/targets/Ddinstal.ini";
    form.txtMain[kIniPathBox] = "/targets/Pyx.ini";
    form.txtMain[kManufacturerIdBox] = "26";
    form.txtMain[kManufacturerNameBox] = "Acme";
    form.txtMain[kManufacturerDescriptionBox] = "Acme Inc";
    form.txtMain[kDeviceIdBox] = "7";
    form.txtMain[kDeviceNameBox] = "Flow";
    form.txtMain[kDeviceDescriptionBox] = "Flow meter";
    form.txtMain[kDllBox] = "Dev";
    form.txtMain[kTemplateBox] = "t";
    form.txtMain[kRevisionNameBox] = "R1";
    form.txtMain[kRevisionDescriptionBox] = "First";
    form.txtMain[kDeviceHelpBox] = "h";
    form.txtMain[kBlockHelpBox] = "b";
    form.cboDevRev = "01";
    form.cboDDRev = "01";
    form.cboHARTRev = "05";
    form.lstTAVVersionSupport = {{"5.0", true}, {"6.0", true}};
    return form;
}

}  // namespace ventlock::test
