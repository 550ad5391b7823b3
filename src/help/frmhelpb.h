#pragma once

#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

// The help text, which the organiser can read, search, print and rewrite. It stands in the main
// window when a button opened it, and beside the screen in use when F1 did.
class frmhelpb : public QWidget
{
    Q_OBJECT

public:
    explicit frmhelpb(const ScreenContext &context);

    void entered();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void build();
    QLayout *buildSearch();
    QLayout *buildButtons();
    void connectControls();
    void showChapterOf(const QString &screen);
    void showLine(int line);
    void listChapters();
    void search();
    void save();
    void print();
    bool mayLeave();
    void leave();

    ScreenContext m_context;
    QString m_openedFrom; // the screen that help was opened from
    QString m_chapterOf;  // the screen whose chapter is shown
    QLineEdit *txtsearch;
    QPushButton *cmdfind;
    QListWidget *lstchapters;
    QPlainTextEdit *txthelp;
    QPushButton *cmdsave;
    QLabel *lblunsaved;
    QPushButton *cmdprint;
    QPushButton *cmdreturn;
    NoteLine *lblnote;
};
