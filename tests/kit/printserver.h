#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

// A real print server of the test's own, on a socket in a temporary folder. Its queues are "works",
// which files each job instead of printing it, "paused", which accepts jobs and keeps them, and
// "refuses", which accepts none. Start it before the program asks for a printer.
class PrintServer
{
public:
    PrintServer();
    ~PrintServer();

    // Runs a command of the print system, such as lpadmin.
    static void run(const QString &command, const QStringList &arguments);
    static void setDefaultQueue(const QString &queue);

    // Ends the server, as a crash would.
    void stop();

    // Waits until "works" has printed so many jobs since the start and returns the text of each.
    QStringList papers(qsizetype jobs) const;

    // The number of jobs that wait in a queue.
    static qsizetype waitingJobs(const QString &queue);

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    void write(const QString &name, const QString &text) const;
    void writeConfiguration() const;

    QTemporaryDir m_folder;
    QProcess m_server;
};

// The text on the pages of a PDF file, laid out as on paper unless other options of pdftotext are
// given; a form feed ends each page.
QString pdfText(const QString &file, const QStringList &options = {QStringLiteral("-layout")});
