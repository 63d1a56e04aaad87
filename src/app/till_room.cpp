#include "app/till_room.h"

#include "app/forms.h"
#include "common/program.h"
#include "sales/forms/receipt_designer.h"
#include "sales/forms/stfatura.h"
#include "sales/forms/till_book.h"
#include "sales/receipt_editor.h"

TillRoom::TillRoom(Program &program, const Forms &forms)
    : m_program(program), m_forms(forms), m_till(program)
{
    if (program.journal)
        m_memory = std::make_unique<TillMemory>(program, m_till);
}

TillRoom::~TillRoom()
{
    delete m_designer;
    delete m_book;
    delete m_form;
}

void TillRoom::show()
{
    m_forms.show(m_form, [this] {
        auto *form = new stfatura(m_till);
        m_forms.giveMenu(form->menuButton());
        keepOnTop(*form, m_till.settings().liste.enust);
        if (m_memory) {
            const auto mark = [this, form] { form->showMark(m_memory->mark()); };
            connect(m_memory.get(), &TillMemory::markChanged, form, mark);
            connect(form, &stfatura::bookWanted, this, &TillRoom::showBook);
            mark();
        }
        return form;
    });
}

void TillRoom::showBook(bool incomplete)
{
    m_forms.show(m_book, [this] {
        auto *form = new TillBook(*m_memory, m_till, m_form);
        form->setModal(true);
        return form;
    });
    m_book->open(incomplete);
}

void TillRoom::showReceiptDesigner(QWidget *asker)
{
    m_forms.show(m_designer, [&] {
        auto *editor = new ReceiptEditor(m_program);
        auto *form = new ReceiptDesigner(*editor, asker);
        editor->setParent(form);
        connect(editor, &ReceiptEditor::saved, this, &TillRoom::reload);
        form->setModal(true);
        return form;
    });
}

void TillRoom::reload()
{
    if (!m_form)
        return;
    m_till.load();
    keepOnTop(*m_form, m_till.settings().liste.enust);
}

bool TillRoom::isOnTop() const
{
    return m_form && m_till.settings().liste.enust;
}

bool TillRoom::mayClose(bool startsAnew)
{
    return !m_form || (startsAnew && m_memory && m_memory->park()) || m_till.mayClose();
}

void TillRoom::stay()
{
    if (m_memory)
        m_memory->unpark();
}

void TillRoom::close()
{
    m_till.discard(); // else it would ask once more
    if (m_form)
        m_form->close();
}
