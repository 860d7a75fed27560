#include "instrument/camerawarningbox.h"

#include "widgets/hbimessagebox.h"
#include "widgets/p_lineedit.h"

#include <QCoreApplication>
#include <QGridLayout>

QString showCameraWarningBox(const QString &text, bool atex)
{
    HBIMessageBox box;
    box.setWindowFlag(Qt::CustomizeWindowHint);
    box.setIcon(QMessageBox::Critical);
    QFont bold(QStringLiteral("Arial"));
    bold.setPixelSize(15);
    bold.setBold(true);
    box.setFont(bold);
    box.setText(QStringLiteral("<p align='center'>") + QCoreApplication::translate("CameraController", "WARNING!")
                + QStringLiteral("</p><p align='center'>") + text + QStringLiteral("</p><br>"));
    P_LineEdit *code = nullptr;
    if (atex) {
        box.setInformativeText(QStringLiteral("<p align='center' style='font-size:8px'>")
                               + QCoreApplication::translate("CameraController", "ATEX Terms & Conditions.")
                               + QStringLiteral("</p>"));
        code = new P_LineEdit(&box);
        code->setFixedWidth(100);
        if (auto *grid = qobject_cast<QGridLayout *>(box.layout()))
            grid->addWidget(code, grid->rowCount(), 0, 1, grid->columnCount(), Qt::AlignHCenter);
        box.addInstructionButton(QCoreApplication::translate("CameraController", "Enter your Passcode to Continue."));
        code->setFocus();
    } else {
        box.addInstructionButton(QCoreApplication::translate("CameraController", "Press Return to Continue."));
    }
    const int result = box.exec();
    return code ? code->text() : QString::number(result);
}
