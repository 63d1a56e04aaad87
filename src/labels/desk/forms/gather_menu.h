#pragma once

#include <QMenu>

class LabelDesk;

/// The commands that gather the stock-list rows without a barcode. Their keys work everywhere in
/// the parent's window.
class GatherMenu final : public QMenu
{
    Q_OBJECT

public:
    /// `desk` must outlive the menu.
    GatherMenu(LabelDesk &desk, QWidget *parent);
};
