#pragma once
// The options wizard frmHealthCheckOptions as a model: nine tabs (introduction, the
// seven steps, miscellaneous), the options of steps 3, 4 and 7 with their help panes,
// the range checks of the Save commands and the F1 topic of each tab.

#include "core/FormControls.h"

#include <QString>

#include <array>

namespace twk {

class Engine;

namespace optionsText {
inline const QString kInvalidTitle = QStringLiteral(" Invalid input!");
inline const QString kStep3Range =
    QStringLiteral("Please type in a health check duration     \r\nbetween 30 and 600 seconds!");
inline const QString kStep4Range = QStringLiteral(
    "Please type in a replica synchronization time difference     \r\nbetween 5 and 360 minutes!");
inline const QString kStep4RangeEnter =
    QStringLiteral("Please type in a replica synchronization time difference     \r\n"
                   "time difference between 5 and 360 minutes!     ");
inline const QString kStep7Range =
    QStringLiteral("Please type in a health check duration     \r\nbetween 30 and 240 seconds!");
inline const QString kNoOptions =
    QStringLiteral("This health check step currently has no options.");
inline const QString kTidHint =
    QStringLiteral("All NDS-/eDirectory Health Check Steps performed by Tarnwick are based on the "
                   "Technical Information Document TID10060600.");
} // namespace optionsText

/// The help pane of tabs 3, 4 and 7.
struct OptionHelpPane {
    QString lbHelpHeader;
    QString lbHelpDescription;
    QString lbDefaultValue;
    QString lbCurrentSetting;
    QString lbRange;
};

/// The four commands of a tab.
struct TabCommands {
    ButtonState cmdPrev{QStringLiteral("< &Back")};
    ButtonState cmdNext{QStringLiteral("&Next >")};
    ButtonState cmdSave{QStringLiteral("&Save")};
    ButtonState cmdExit{QStringLiteral("E&xit")};
};

class FrmHealthCheckOptions {
public:
    explicit FrmHealthCheckOptions(Engine& engine);

    int SSTab1 = 0; ///< 0 introduction, 1..7 the steps, 8 miscellaneous
    std::array<TabCommands, 9> tabs;
    LabelState lbIntroHeader;
    LabelState lbIntroDescription;
    CheckBoxState chk1Step3{QStringLiteral("ignore repli&ca in skulk error")};
    CheckBoxState chk2Step3{QStringLiteral("show replica in skulk errors")};
    CheckBoxState chk3Step3{QStringLiteral("inclu&de server synchronization")};
    CheckBoxState chk4Step3{QStringLiteral("sho&w server synchronization in grid")};
    TextBoxState txtb1Step3;
    TextBoxState txtb1Step4;
    TextBoxState txtb1Step7;
    OptionHelpPane step3Help;
    OptionHelpPane step4Help;
    OptionHelpPane step7Help;
    QString lbMiscTIDHint = optionsText::kTidHint;
    QString focus;
    bool closed = false;

    /// Tab 0 and the focus on its Exit.
    void Form_Activate();
    void NextTab();
    void PreviousTab();
    /// Loads the values of the current tab into its fields and help pane.
    void SSTab1_Click();
    /// The introduction's links: cmdHelpN jumps to the step's tab, roLabelN shows its text.
    void cmdHelp_Click(int step);
    void roLabel_Click(int step);
    /// A click on check box 1 to 4 of tab 3 (after the window toggled it).
    void chkStep3_Click(int box);
    /// A field got the focus: tab 3, 4 or 7.
    void txtb1_GotFocus(int tab);
    /// False when the number was refused (the boxes of tab 3 are stored even then).
    bool cmdStep3Save_Click();
    bool cmdStep4Save_Click();
    bool cmdStep7Save_Click();
    /// Exit of every tab: unsaved edits are dropped.
    void cmdExit_Click();
    /// Whether a typed character may reach the focused field (digits and editing keys).
    bool Form_KeyPress(int keyAscii) const;
    /// Enter in a field: validates as its Save does.
    bool enterInField(int tab);
    /// The F1 help topic of the current tab.
    QString helpTopic() const;

private:
    QString value(const char* name, const char* fallback) const;
    void setValue(const char* name, const QString& text);
    void showCheckHelp(int box);
    Engine& engine_;
};

} // namespace twk
