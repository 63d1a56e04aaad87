#pragma once

#include <QFont>
#include <QImage>
#include <QWidget>

class PropertyBag;

/// A text element on the designer's page: one caption in a font, colour and angle, drawn as the
/// print engine draws it. It also remembers where on the label the text is anchored.
///
/// Every set operation stores the value, tells that the property has changed, so that the form
/// saves it, and draws the control anew at once.
///
/// Named by the system; the designer's canvas paints draw commands, so that only the tour shows it.
class Barkod final : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(float Angle READ angle WRITE setAngle)
    Q_PROPERTY(QString Caption READ caption WRITE setCaption)
    Q_PROPERTY(bool AutoSize READ autoSize WRITE setAutoSize)
    Q_PROPERTY(int ColorStyle READ colorStyle WRITE setColorStyle)
    Q_PROPERTY(uint BackColor READ backColor WRITE setBackColor)
    Q_PROPERTY(uint ForeColor READ foreColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ isActive WRITE setActive)
    Q_PROPERTY(QFont Font READ captionFont WRITE setCaptionFont)
    Q_PROPERTY(int BackStyle READ backStyle WRITE setBackStyle)
    Q_PROPERTY(int BorderStyle READ borderStyle WRITE setBorderStyle)
    Q_PROPERTY(int PosX READ posX WRITE setPosX)
    Q_PROPERTY(int PosY READ posY WRITE setPosY)

public:
    /// `name`: the control's name, and its caption until another is set.
    explicit Barkod(const QString &name, QWidget *parent = nullptr);

    float angle() const { return m_angle; } ///< degrees, counter-clockwise
    QString caption() const { return m_caption; }
    bool autoSize() const { return m_autoSize; }    ///< takes the size of the turned text
    int colorStyle() const { return m_colorStyle; } ///< kept, without effect on the drawing
    /// Windows colour numbers 0x00BBGGRR, or 0x80000000 and the number of a system colour.
    uint backColor() const { return m_backColor; }
    uint foreColor() const { return m_foreColor; }
    bool isActive() const { return m_active; }
    QFont captionFont() const { return m_font; }
    int backStyle() const { return m_backStyle; }     ///< 0 = the page shows through
    int borderStyle() const { return m_borderStyle; } ///< 0 = none, else a line in the text colour
    /// The text's anchor point on the label.
    int posX() const { return m_posX; }
    int posY() const { return m_posY; }

    void setAngle(float degrees);
    void setCaption(const QString &text);
    void setAutoSize(bool on);
    void setColorStyle(int style);
    void setBackColor(uint colour);
    void setForeColor(uint colour);
    void setActive(bool on);
    void setCaptionFont(const QFont &font);
    void setBackStyle(int style);
    void setBorderStyle(int style);
    void setPosX(int x);
    void setPosY(int y);

    void writeProperties(PropertyBag &bag) const;
    /// Missing keys give the values of a new control. Draws once.
    void readProperties(const PropertyBag &bag);

    /// Clears the control and draws the caption anew.
    void Cls();

Q_SIGNALS:
    /// The form has something to save. `key`: as in the property store.
    void propertyChanged(const QString &key);
    void redrawn();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    template <typename Value>
    void set(Value &property, const Value &value, const QString &key);
    void draw();
    QColor resolved(uint colour) const;

    float m_angle = 90;
    QString m_caption;
    bool m_autoSize = true;
    int m_colorStyle = 2;
    uint m_backColor = 0x8000000F; ///< the system's button face
    uint m_foreColor = 0;
    bool m_active = true;
    QFont m_font;
    int m_backStyle = 0;
    int m_borderStyle = 0;
    int m_posX = 100;
    int m_posY = 1000;

    QImage m_surface;
    bool m_drawing = false;
};
