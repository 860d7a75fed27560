#pragma once

#include <QWidget>

#include <functional>

class QCheckBox;
class QLabel;
class P_LineEdit;
class P_PushButton;

// The meterage panel of the coiler and camera page: the operator picks the
// distance calibration by coiler model (lettered rows) or types it in, unless a
// new camera's coiler carries its own, which then shows as one automatic line.
class SettingsSurvey : public QWidget
{
    Q_OBJECT
public:
    // Asks whether to overwrite the stored calibration; true for Yes.
    using OverwriteQuestion = std::function<bool()>;

    explicit SettingsSurvey(QWidget *parent = nullptr);

    void setOverwriteQuestion(OverwriteQuestion question);
    float meterage() const { return m_meterage; }
    bool showsNewCamera() const { return newCamera; }
    // The letter of the checked row ('A' to 'E', 'M'), or a null character.
    QChar checkedKey() const;
    QString manualText() const;
    QString automaticText() const;

    static QString formatMeterage(float value);

public slots:
    void saveSettingsClicked();
    void updateMeterage();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct Model {
        char key;
        const char *label;
        const char *meterage;
    };
    static const Model kModels[];
    static constexpr int kModelCount = 5;

    void selectModel(int row);
    void selectManual();
    void selectAutomatic();
    void checkOnly(QCheckBox *box);
    void showRows();
    bool askOverwrite() const;

    bool newCamera = false;
    float m_meterage = 0.76f;
    bool m_imperial = false;
    QCheckBox *m_rows[kModelCount] = {};
    QCheckBox *m_manual = nullptr;
    P_LineEdit *m_manualValue = nullptr;
    QCheckBox *m_automatic = nullptr;
    QLabel *m_automaticText = nullptr;
    P_PushButton *m_save = nullptr;
    OverwriteQuestion m_question;
};
