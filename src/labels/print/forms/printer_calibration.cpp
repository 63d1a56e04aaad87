#include "labels/print/forms/printer_calibration.h"

#include "ui_printer_calibration.h"

using namespace Qt::StringLiterals;

PrinterCalibration::PrinterCalibration(PrinterSetting setting, QWidget *parent)
    : QDialog(parent), m_setting(std::move(setting)),
      m_ui(std::make_unique<Ui::PrinterCalibration>())
{
    m_ui->setupUi(this);
    setLocale(QLocale(QLocale::Turkish, QLocale::Turkey)); // decimal comma in the number boxes
    m_ui->yazici->setText(
        u"Yazıcı: %1\nDeneme sayfasını basın, cetvelle ölçüp ölçüleri yazın."_s.arg(
            m_setting.printer()));
    showSheet();
    showCalibration();
    connect(m_ui->deneme, &QPushButton::clicked, this, [this] {
        m_setting.set(shown());
        if (m_setting.printSheet())
            showSheet();
    });
    connect(m_ui->hesapla, &QPushButton::clicked, this, [this] {
        if (m_setting.measure({m_ui->sol->value(), m_ui->ust->value(), m_ui->boy->value()}))
            showCalibration();
    });
    connect(m_ui->sifirla, &QPushButton::clicked, this, [this] {
        m_setting.set({});
        showCalibration();
    });
    connect(m_ui->kaydet, &QPushButton::clicked, this, [this] {
        m_setting.set(shown());
        if (m_setting.save())
            accept();
    });
    connect(m_ui->vazgec, &QPushButton::clicked, this, &QDialog::reject);
    m_ui->deneme->setFocus();
}

PrinterCalibration::~PrinterCalibration() = default;

/// The boxes begin with what a printer that hits would have shown.
void PrinterCalibration::showSheet()
{
    const CalibrationSheet &sheet = m_setting.sheet();
    m_ui->sol->setValue(sheet.inset + sheet.unreached.x());
    m_ui->ust->setValue(sheet.inset + sheet.unreached.y());
    m_ui->boy->setValue(m_setting.sheet().row);
}

void PrinterCalibration::showCalibration()
{
    m_ui->x->setValue(m_setting.calibration().x);
    m_ui->y->setValue(m_setting.calibration().y);
    m_ui->olcek->setValue(m_setting.calibration().scale * 100);
}

Calibration PrinterCalibration::shown() const
{
    return {m_ui->x->value(), m_ui->y->value(), m_ui->olcek->value() / 100};
}
