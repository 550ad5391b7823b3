#pragma once

#include <QList>
#include <QWidget>

class QLineEdit;
class QPushButton;

// A row of buttons of which one names the current bet type, and the type's code in txttype.
class TypeButtons : public QWidget
{
    Q_OBJECT

public:
    struct Type
    {
        QString code;
        QString name; // of the button
        QString caption;
        QString toolTip;
    };

    explicit TypeButtons(const QList<Type> &types, QWidget *parent = nullptr);

    // The current code; empty until one is set.
    QString type() const;
    void setType(const QString &code);

signals:
    // A button was clicked; the owner decides whether its type becomes the current one.
    void clicked(const QString &code);

private:
    QLineEdit *txttype;
    QList<QPushButton *> m_buttons;
    QList<Type> m_types;
};
