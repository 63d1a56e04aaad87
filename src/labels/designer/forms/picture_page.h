#pragma once

#include <QWidget>

#include <memory>

class DesignEditor;
class PictureFolder;

namespace Ui {
class PicturePage;
}

/// The file of the selected pictures: one of the folder, or one brought in from elsewhere.
class PicturePage final : public QWidget
{
    Q_OBJECT

public:
    /// Both are kept by reference.
    PicturePage(DesignEditor &editor, PictureFolder &pictures, QWidget *parent = nullptr);
    ~PicturePage() override;

    void showSelection();
    void enter();

private:
    void setFile(const QString &file);
    void bringIn();
    void keepProportion();
    void showPicture(const QString &file);
    void fillFiles(const QString &file);

    DesignEditor &m_editor;
    PictureFolder &m_pictures;
    QString m_shown;
    std::unique_ptr<Ui::PicturePage> m_ui;
};
