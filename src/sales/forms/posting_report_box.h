#pragma once

#include "sales/posting_report.h"

#include <QDialog>

#include <memory>

class TillSession;

namespace Ui {
class PostingReportBox;
}

/// What a posting that did not go through whole left missing: to read, print and save.
class PostingReportBox final : public QDialog
{
    Q_OBJECT

public:
    PostingReportBox(TillSession &session, const PostingReport &report, QWidget *parent = nullptr);
    ~PostingReportBox() override;

private:
    void save();

    TillSession &m_session;
    PostingReport m_report;
    std::unique_ptr<Ui::PostingReportBox> m_ui;
};
