#include "labels/designer/forms/Form1.h"

#include "labels/designer/clipboard.h"
#include "labels/designer/designer_session.h"
#include "labels/designer/forms/design_canvas.h"
#include "labels/designer/forms/designer_actions.h"
#include "labels/designer/forms/element_dialog.h"
#include "labels/designer/forms/help_sheet.h"
#include "labels/designer/forms/page_setup.h"
#include "labels/designer/forms/property_panel.h"
#include "labels/designer/forms/ruler.h"
#include "labels/designer/forms/sample_bar.h"
#include "labels/designer/forms/save_dialog.h"
#include "labels/designer/forms/sheet_view.h"
#include "labels/designer/forms/symbol_picker.h"
#include "labels/designer/symbol_fonts.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStatusTime = 8000;      ///< milliseconds
constexpr qsizetype kMostNotices = 15; ///< are listed in the panel

} // namespace

Form1::Form1(DesignerSession &session, QWidget *parent) : QMainWindow(parent), m_session(session)
{
    setObjectName(u"Form1"_s);
    resize(1280, 720);
    buildPage();
    m_actions = new DesignerActions(*this, *m_canvas);
    m_actions->setParent(this);
    buildSamples();
    buildStatus();
    connectSession();
    showTitle();
    showState();
    showRow();
    m_canvas->setFocus();
}

Form1::~Form1() = default;

void Form1::buildPage()
{
    DesignEditor &editor = m_session.editor();
    m_canvas = new DesignCanvas(editor, m_session.pictures().path());
    m_canvas->setObjectName(u"canvas"_s);
    auto *page = new QWidget;
    auto *grid = new QGridLayout(page);
    grid->setSpacing(0);
    grid->setContentsMargins(0, 0, 0, 0);
    m_samples = new SampleBar;
    grid->addWidget(m_samples, 0, 0, 1, 2);
    auto *across = new Ruler(Qt::Horizontal, editor, *m_canvas);
    across->setObjectName(u"yatayCetvel"_s);
    auto *down = new Ruler(Qt::Vertical, editor, *m_canvas);
    down->setObjectName(u"dikeyCetvel"_s);
    grid->addWidget(across, 1, 1);
    grid->addWidget(down, 2, 0);
    grid->addWidget(m_canvas, 2, 1);

    m_panel = new PropertyPanel(m_session);
    m_panel->setObjectName(u"panel"_s);
    auto *area = new QScrollArea;
    area->setWidget(m_panel);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setMinimumWidth(m_panel->minimumWidth() + area->verticalScrollBar()->sizeHint().width());
    auto *splitter = new QSplitter;
    splitter->addWidget(page);
    splitter->addWidget(area);
    splitter->setStretchFactor(0, 1);
    splitter->setCollapsible(0, false);
    setCentralWidget(splitter);
}

void Form1::buildSamples()
{
    m_samples->addAction(m_actions->at(Command::previousSample), u"◀"_s);
    m_samples->addAction(m_actions->at(Command::nextSample), u"▶"_s);
    m_samples->addAction(m_actions->at(Command::queueSample), u"Kuyruk"_s);
    m_samples->addAction(m_actions->at(Command::fieldNames), u"Örnek"_s);
    connect(m_samples, &SampleBar::searched, this, &Form1::stockWanted);
    connect(m_samples, &SampleBar::left, m_canvas, qOverload<>(&QWidget::setFocus));
}

void Form1::buildStatus()
{
    m_place = new QLabel;
    m_place->setMinimumWidth(130);
    m_zoom = new QLabel;
    m_zoom->setObjectName(u"yakinlik"_s);
    statusBar()->addPermanentWidget(m_place);
    statusBar()->addPermanentWidget(m_zoom);
    connect(m_canvas, &DesignCanvas::pointerMoved, this, [this](QPointF mm) {
        m_place->setText(
            u"%1 ; %2 mm"_s.arg(mm.x(), 0, 'f', 1).arg(mm.y(), 0, 'f', 1).replace(u'.', u','));
    });
    connect(m_canvas, &DesignCanvas::pointerLeft, m_place, &QLabel::clear);
    connect(m_canvas, &DesignCanvas::viewChanged, this,
            [this] { m_zoom->setText(u"%%1"_s.arg(qRound(m_canvas->view().zoom() * 100))); });
}

void Form1::connectSession()
{
    DesignEditor &editor = m_session.editor();
    connect(&editor, &DesignEditor::stateChanged, this, &Form1::showState);
    connect(&editor, &DesignEditor::propertiesWanted, this, &Form1::showProperties);
    connect(&editor, &DesignEditor::copied, this, [](const LabelLayout &elements) {
        auto *mime = new QMimeData;
        mime->setData(kClipboardFormat.toString(), clipboardBytes(elements));
        QGuiApplication::clipboard()->setMimeData(mime);
    });
    connect(&m_session, &DesignerSession::titleChanged, this, &Form1::showTitle);
    connect(&m_session, &DesignerSession::opened, m_canvas, &DesignCanvas::reset);
    connect(&m_session, &DesignerSession::rowChanged, this, &Form1::showRow);
    connect(&m_session, &DesignerSession::noticesChanged, this, &Form1::showNotices);
    connect(&editor, &DesignEditor::selectionChanged, this, &Form1::showNotices);
    connect(m_panel, &PropertyPanel::fixWanted, &m_session, &DesignerSession::makeReadable);
    connect(&m_session, &DesignerSession::printerChanged, this, [this](const PrinterSheet &sheet) {
        m_canvas->setPrinter(sheet.dpi, sheet.unprintable);
    });
    connect(&m_session, &DesignerSession::saveWanted, this, [this] { run(Command::save); });
    connect(&m_session, &DesignerSession::statusChanged, this,
            [this](const QString &text) { statusBar()->showMessage(text, kStatusTime); });
    connect(m_actions, &DesignerActions::wanted, this, &Form1::run);
    connect(m_canvas, &DesignCanvas::menuWanted, m_actions, &DesignerActions::popUp);
    connect(m_panel, &PropertyPanel::left, m_canvas, qOverload<>(&QWidget::setFocus));
}

void Form1::showTitle()
{
    setWindowTitle(m_session.title() + u"[*]"_s);
}

void Form1::showState()
{
    setWindowModified(m_session.editor().document().isDirty());
    m_actions->show(m_session.editor());
}

void Form1::showRow()
{
    m_canvas->setRow(m_session.row());
    m_samples->showRow(m_session.rowText(), m_session.row().stockName);
}

/// On the canvas all of them, in the panel those of the selection, or all while there is none.
void Form1::showNotices()
{
    QStringList texts;
    const RefSet &selected = m_session.editor().selection();
    for (const DesignNotice &notice : m_session.notices())
        if (selected.isEmpty() || selected.contains(notice.ref))
            texts += notice.text;
    texts.removeDuplicates();
    if (const qsizetype more = texts.size() - kMostNotices; more > 0) {
        texts.resize(kMostNotices);
        texts += u"… ve %1 uyarı daha"_s.arg(more);
    }
    m_canvas->setNotices(m_session.notices());
    m_panel->showNotice(texts.join(u'\n'), m_session.canMakeReadable());
}

void Form1::run(Command command)
{
    if (!runWindow(command))
        m_session.editor().run(command);
    showState(); // a checkable action has turned itself over
}

/// Commands of the window itself; false for those that the editor knows.
bool Form1::runWindow(Command command)
{
    switch (command) {
    case Command::newLayout:
        m_session.newLayout();
        return true;
    case Command::open:
        Q_EMIT openWanted();
        return true;
    case Command::save:
        openModal(new SaveDialog(m_session, this));
        return true;
    case Command::saveAs:
        Q_EMIT saveAsWanted();
        return true;
    case Command::pageSetup:
        setUpPage();
        return true;
    case Command::sheetView:
        openModal(new SheetView(m_session, this));
        return true;
    case Command::close:
        close();
        return true;
    case Command::paste:
        paste();
        return true;
    case Command::zoomIn:
        m_canvas->zoomStep(1);
        return true;
    case Command::zoomOut:
        m_canvas->zoomStep(-1);
        return true;
    case Command::zoomFit:
        m_canvas->zoomFit();
        return true;
    case Command::zoomActual:
        m_canvas->zoomActual();
        return true;
    case Command::panel:
        m_panel->enter();
        return true;
    case Command::findSample:
        m_samples->enter();
        return true;
    case Command::previousSample:
        m_session.stepRow(-1);
        return true;
    case Command::nextSample:
        m_session.stepRow(1);
        return true;
    case Command::queueSample:
        Q_EMIT queueWanted();
        return true;
    case Command::fieldNames:
        m_session.setRows({});
        return true;
    case Command::help:
        openModal(new HelpSheet(this));
        return true;
    default:
        return false;
    }
}

void Form1::openModal(QDialog *dialog)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (!dialog->testAttribute(Qt::WA_Resized)) // else a small screen shows two thirds of it
        dialog->resize(dialog->sizeHint().boundedTo(screen()->availableSize()));
    connect(dialog, &QObject::destroyed, m_canvas, qOverload<>(&QWidget::setFocus));
    dialog->open();
}

void Form1::setUpPage()
{
    auto *dialog = new PageSetup(m_session, this);
    connect(dialog, &PageSetup::calibrationWanted, this, &Form1::calibrationWanted);
    openModal(dialog);
}

void Form1::showProperties(bool fresh)
{
    DesignEditor &editor = m_session.editor();
    const LabelRef ref = editor.selection().front();
    if (ref.kind == ElementKind::text && isSymbol(editor.layout().texts[ref.index]))
        openModal(new SymbolPicker(editor, fresh, this));
    else
        openModal(new ElementDialog(m_session, fresh, this));
}

void Form1::paste()
{
    const QMimeData *mime = QGuiApplication::clipboard()->mimeData();
    const QString format = kClipboardFormat.toString();
    if (mime->hasFormat(format))
        m_session.editor().paste(elementsOf(mime->data(format)));
    else if (mime->hasText())
        m_session.editor().paste(elementOfText(mime->text()));
}

/// The window goes when its work is safe or given up.
void Form1::closeEvent(QCloseEvent *event)
{
    if (!m_leaving) {
        m_session.guarded([this] {
            m_leaving = true;
            close(); // when the work had to be saved first
        });
        if (!m_leaving) {
            event->ignore();
            return;
        }
    }
    QMainWindow::closeEvent(event);
}
