// Runs the tests inside the toolkit's main loop: controls behave differently without one.

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/frame.h>

namespace {

class GuiTestApp final : public wxApp {
 public:
    bool OnInit() override {
        SetExitOnFrameDelete(false);
        (new wxFrame(nullptr, wxID_ANY, "test host", wxPoint(600, 700)))->Show();
        CallAfter([this] {
            result_ = RUN_ALL_TESTS();
            ExitMainLoop();
        });
        return true;
    }
    int OnRun() override {
        wxApp::OnRun();
        return result_;
    }
    void OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                         const wxChar* text) override {
        ADD_FAILURE() << wxString(file) << ":" << line << " " << wxString(function) << ": "
                      << wxString(condition) << " " << wxString(text);
    }
    bool OnExceptionInMainLoop() override {
        ADD_FAILURE() << "an exception reached the main loop";
        return true;
    }

 private:
    int result_ = 1;
};

}  // namespace

wxIMPLEMENT_APP_NO_MAIN(GuiTestApp);

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return wxEntry(argc, argv);
}
