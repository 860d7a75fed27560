#include "settings/settingssurvey.h"

#include "core/consolesettings.h"
#include "instrument/cameracontroller.h"
#include "widgets/hbimessagebox.h"
#include "widgets/p_lineedit.h"
#include "widgets/p_pushbutton.h"

#include <QCheckBox>
#include <QDoubleValidator>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

namespace {
const char kMeterageKey[] = "Coiler/Meterage";
const char kImperialKey[] = "Coiler/Imperial";
const char kDefaultMeterage[] = "0.76";
constexpr float kDefaultValue = 0.76f;
constexpr float kUnsetBelow = 0.01f;
constexpr float kFeetPerMetre = 3.28f;
// What CameraController reports while no coiler has been recognised.
constexpr float kNoCoiler = 999.0f;
} // namespace

const SettingsSurvey::Model SettingsSurvey::kModels[] = {
    {'A', QT_TR_NOOP("[A] Lanthorn"), "0.76"},    {'B', QT_TR_NOOP("[B] Lanthorn 120"), "0.98"},
    {'C', QT_TR_NOOP("[C] Mote-Cam"), "0.61"},    {'D', QT_TR_NOOP("[D] Lanthorn XL"), "0.92"},
    {'E', QT_TR_NOOP("[E] GullyHopper"), "1.25"},
};

SettingsSurvey::SettingsSurvey(QWidget *parent)
    : QWidget(parent)
    , m_question([this] { return askOverwrite(); })
{
    auto *grid = new QGridLayout(this);
    grid->addWidget(new QLabel(tr("Coiler meterage"), this), 0, 0, 1, 2);
    for (int row = 0; row < kModelCount; ++row) {
        m_rows[row] = new QCheckBox(tr(kModels[row].label), this);
        m_rows[row]->setFocusPolicy(Qt::NoFocus);
        grid->addWidget(m_rows[row], row + 1, 0, 1, 2);
    }
    m_manual = new QCheckBox(tr("[M] Manual"), this);
    m_manual->setFocusPolicy(Qt::NoFocus);
    m_manualValue = new P_LineEdit(this);
    m_manualValue->setValidator(new QDoubleValidator(0.0, 100.0, 4, m_manualValue));
    grid->addWidget(m_manual, kModelCount + 1, 0);
    grid->addWidget(m_manualValue, kModelCount + 1, 1);
    m_automatic = new QCheckBox(tr("[A] Automatic"), this);
    m_automatic->setFocusPolicy(Qt::NoFocus);
    m_automaticText = new QLabel(this);
    grid->addWidget(m_automatic, kModelCount + 2, 0);
    grid->addWidget(m_automaticText, kModelCount + 2, 1);
    m_save = new P_PushButton(tr("Save"), this);
    grid->addWidget(m_save, kModelCount + 3, 0, 1, 2);
    connect(m_save, &QPushButton::clicked, this, &SettingsSurvey::saveSettingsClicked);
    updateMeterage();
}

void SettingsSurvey::setOverwriteQuestion(OverwriteQuestion question)
{
    m_question = std::move(question);
}

QString SettingsSurvey::formatMeterage(float value)
{
    return QString::number(double(value), 'g', 4);
}

QChar SettingsSurvey::checkedKey() const
{
    for (int row = 0; row < kModelCount; ++row) {
        if (m_rows[row]->isChecked())
            return QLatin1Char(kModels[row].key);
    }
    if (m_manual->isChecked())
        return QLatin1Char('M');
    if (m_automatic->isChecked())
        return QLatin1Char('A');
    return QChar();
}

QString SettingsSurvey::manualText() const
{
    return m_manualValue->text();
}

QString SettingsSurvey::automaticText() const
{
    return m_automaticText->text();
}

void SettingsSurvey::checkOnly(QCheckBox *box)
{
    for (QCheckBox *row : m_rows)
        row->setChecked(row == box);
    m_manual->setChecked(m_manual == box);
    m_automatic->setChecked(m_automatic == box);
}

void SettingsSurvey::showRows()
{
    for (QCheckBox *row : m_rows)
        row->setVisible(!newCamera);
    m_manual->setVisible(!newCamera);
    m_manualValue->setVisible(!newCamera);
    m_automatic->setVisible(newCamera);
    m_automaticText->setVisible(newCamera);
}

void SettingsSurvey::selectModel(int row)
{
    checkOnly(m_rows[row]);
    m_meterage = QString::fromLatin1(kModels[row].meterage).toFloat();
}

void SettingsSurvey::selectManual()
{
    checkOnly(m_manual);
    m_manualValue->setFocus();
}

void SettingsSurvey::selectAutomatic()
{
    const CameraController *camera = CameraController::instance();
    checkOnly(m_automatic);
    if (camera->GetMeterage() == kNoCoiler) {
        m_automaticText->setText(tr("ERROR: COILER NOT PROGRAMMED!"));
        m_meterage = 0;
    } else {
        m_automaticText->setText(tr("Pushrod Length\n%1m").arg(camera->GetPushrodLength()));
        m_meterage = camera->GetMeterage();
    }
}

void SettingsSurvey::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (newCamera) {
        if (key == Qt::Key_A) {
            selectAutomatic();
            return;
        }
    } else if (key == Qt::Key_M) {
        selectManual();
        return;
    } else if (key >= Qt::Key_A && key < Qt::Key_A + kModelCount) {
        selectModel(key - Qt::Key_A);
        return;
    }
    QWidget::keyPressEvent(event);
}

void SettingsSurvey::showEvent(QShowEvent *event)
{
    updateMeterage();
    QWidget::showEvent(event);
}

bool SettingsSurvey::askOverwrite() const
{
    HBIMessageBox box(QMessageBox::Question, tr("Are you sure you want to overwrite current coiler settings?"),
                      QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

void SettingsSurvey::saveSettingsClicked()
{
    if (m_manual->isChecked())
        m_meterage = m_manualValue->text().toFloat();
    if (m_meterage < kUnsetBelow)
        m_meterage = kDefaultValue;
    const QString text = formatMeterage(m_meterage);
    if (!m_question())
        return;
    ConsoleSettings settings;
    settings.setValue(QLatin1String(kMeterageKey), text);
    settings.sync();
    if (m_imperial)
        m_meterage /= kFeetPerMetre;
}

void SettingsSurvey::updateMeterage()
{
    ConsoleSettings settings;
    float stored = settings.value(QLatin1String(kMeterageKey), QLatin1String(kDefaultMeterage)).toString().toFloat();
    if (stored < kUnsetBelow)
        stored = kDefaultValue;
    const QString text = formatMeterage(stored);
    m_meterage = stored;
    m_imperial = settings.value(QLatin1String(kImperialKey), false).toBool();
    if (m_imperial)
        m_meterage /= kFeetPerMetre;

    const CameraController *camera = CameraController::instance();
    newCamera = camera->GetCameraState() == CameraController::kNewCamPresent;
    showRows();
    if (newCamera) {
        checkOnly(nullptr);
        m_automaticText->clear();
        const float coiler = camera->GetMeterage() == kNoCoiler ? 0.0f : camera->GetMeterage();
        if (text == formatMeterage(coiler))
            selectAutomatic();
        return;
    }
    for (int row = 0; row < kModelCount; ++row) {
        if (text == QLatin1String(kModels[row].meterage)) {
            checkOnly(m_rows[row]);
            m_manualValue->clear();
            return;
        }
    }
    checkOnly(m_manual);
    m_manualValue->setText(text);
}
