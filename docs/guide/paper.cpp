// Prints the pages of the guide as PDF, for helpers who have a printer but no reader of Markdown.
// Usage: paper FOLDER PAGE.md...
// FOLDER gets the PDF files, and holds each drawing NAME.svg of the pages as NAME.png: not every
// system can show SVG.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int fontSize = 10;   // points
constexpr qreal inch = 96;     // in the units of a document that no screen has shown
constexpr qreal picture = 3.8; // inches; so small that the cashier's page is one sheet
constexpr qreal drawing = 6.5;

// Gives each piece of text of one form the form that \a changed makes of it.
void changeForms(QTextDocument &page,
                 const std::function<QTextCharFormat(const QTextCharFormat &)> &changed)
{
    QList<QTextFragment> pieces; // all of them before the first changes, which may join some
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it)
            pieces.append(it.fragment());
    }
    QList<std::tuple<int, int, QTextCharFormat>> changes;
    for (const QTextFragment &piece : pieces)
        changes.append({piece.position(), piece.length(), changed(piece.charFormat())});
    QTextCursor cursor(&page);
    for (const auto &[position, length, form] : changes) {
        cursor.setPosition(position);
        cursor.setPosition(position + length, QTextCursor::KeepAnchor);
        cursor.setCharFormat(form);
    }
}

// Pictures are wide enough to be understood, drawings as wide as the text.
QTextCharFormat fitted(QTextImageFormat image, const QDir &source, const QDir &folder)
{
    const QFileInfo named(source.filePath(image.name()));
    const bool isDrawing = named.suffix() == "svg"_L1;
    const QString file =
        isDrawing ? folder.filePath(named.completeBaseName() + ".png"_L1) : named.filePath();
    const QSize size = QImageReader(file).size();
    if (size.isEmpty())
        qFatal("there is no picture %s", qPrintable(file));
    const qreal width = inch * (isDrawing ? drawing : picture);
    image.setName(file);
    image.setWidth(width);
    image.setHeight(width * size.height() / size.width());
    return image;
}

void ruleTables(QTextDocument &page)
{
    for (QTextFrame *frame : page.rootFrame()->childFrames()) {
        if (auto *table = qobject_cast<QTextTable *>(frame)) {
            QTextTableFormat format = table->format();
            format.setBorderCollapse(true);
            format.setBorder(1);
            format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            format.setBorderBrush(Qt::gray);
            format.setCellPadding(3);
            format.setCellSpacing(0);
            table->setFormat(format);
        }
    }
}

void print(const QFileInfo &source, const QDir &folder)
{
    QFile file(source.filePath());
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    QTextDocument page;
    page.setDefaultFont(QFont(u"Liberation Sans"_s, fontSize));
    page.setMarkdown(QString::fromUtf8(file.readAll()));
    changeForms(page, [&](const QTextCharFormat &form) -> QTextCharFormat {
        if (form.isImageFormat())
            return fitted(form.toImageFormat(), source.dir(), folder);
        return form.isAnchor() ? QTextCharFormat() : form; // on paper a link leads nowhere
    });
    ruleTables(page);

    QPdfWriter paper(folder.filePath(source.completeBaseName() + ".pdf"_L1));
    paper.setTitle(page.firstBlock().text());
    paper.setPageSize(QPageSize(QPageSize::Letter));
    paper.setPageMargins({}); // the document leaves two centimeters
    page.print(&paper);
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    for (const QString &page : arguments.sliced(2))
        print(QFileInfo(page), QDir(arguments[1]));
    return 0;
}
