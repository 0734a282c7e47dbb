// frmAbout: the program's name and version, and a button that starts the
// desktop's own system information tool. Modeless; it deletes itself when
// closed, and each request after that makes a new one.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QStringList>

namespace trickhaven {

class FrmAbout : public QDialog {
    Q_OBJECT
public:
    explicit FrmAbout(QWidget* parent = nullptr);

    // The tools tried, in order, and the folders searched for them; no
    // folders means the folders of PATH.
    void SetSystemInfoSearch(QStringList tools, QStringList folders);
    // Starts the first tool found, or says that there is none.
    void StartSysInfo();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QStringList tools_;
    QStringList folders_;
};

// Shows the About box that is open, or a new one beside the table.
void ShowAboutBox(QPointer<FrmAbout>& box, QWidget* parent);

}  // namespace trickhaven
