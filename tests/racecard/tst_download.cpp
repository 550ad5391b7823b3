#include "kit/testkit.h"
#include "racecard/download.h"
#include "racecard/fetch.h"

#include <QTcpServer>
#include <QTcpSocket>

using namespace std::chrono_literals;

namespace {

// A web server on this computer that gives every caller the same answer and keeps what was asked.
class WebServer
{
public:
    enum class Then { Close, StayOpen };

    explicit WebServer(const QByteArray &answer = {}, Then then = Then::Close)
        : m_answer(answer)
        , m_then(then)
    {
        if (!m_server.listen(QHostAddress::LocalHost))
            qFatal("no server");
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket *socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [=, this] { serve(socket); });
        });
    }

    QString address(const QString &path = u"/postboard"_s) const
    {
        return u"http://127.0.0.1:%1%2"_s.arg(m_server.serverPort()).arg(path);
    }
    // What the last caller sent, with plain line ends.
    QByteArray asked() const { return QByteArray(m_asked).replace("\r\n", "\n"); }

private:
    void serve(QTcpSocket *socket)
    {
        m_arriving += socket->readAll();
        const qsizetype head = m_arriving.indexOf("\r\n\r\n");
        if (head < 0 || (m_arriving.startsWith("POST") && m_arriving.size() == head + 4))
            return;
        m_asked = std::exchange(m_arriving, {});
        socket->write(m_answer);
        if (m_then == Then::Close)
            socket->disconnectFromHost();
    }

    QTcpServer m_server;
    const QByteArray m_answer;
    const Then m_then;
    QByteArray m_arriving;
    QByteArray m_asked;
};

QByteArray page(const QByteArray &body, const QByteArray &status = "200 OK")
{
    return "HTTP/1.1 " + status + "\r\nContent-Type: text/plain\r\nContent-Length: "
           + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

const QByteArray published =
    "\"1\",\"1\",\"ALPHA\"\r\n\"2\",\"1A\",\"BETA\"\r\n\"0\",\"9\",\"ZERO\"\r\n"
    "\"22\",\"9\",\"HIGH\"\r\n\"END\"\r\n\"3\",\"3\",\"GAMMA\"\r\n\"END\"\r\n";

// Everything that is in the event directory, Saved included, but for the address.
QMap<QString, QByteArray> allFiles(const TestEvent &event)
{
    QMap<QString, QByteArray> files;
    QDirIterator iterator(eventFolder(event.session), QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        QFile file(iterator.next());
        if (file.open(QIODevice::ReadOnly))
            files.insert(file.fileName(), file.readAll());
    }
    return files;
}

} // namespace

class tst_download : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (const char *name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"})
            qunsetenv(name);
    }

    // A page that comes whole is taken, and nothing else.
    void fetch()
    {
        Rows<QByteArray, QByteArray> rows;
        rows("page", page("hello"), "hello");
        rows("until the server closes", "HTTP/1.1 200 OK\r\n\r\nhello", "hello");
        rows("largest", page(QByteArray(5000, 'a')), QByteArray(5000, 'a'));
        rows("larger than a card can be", page(QByteArray(6000, 'a')), {});
        rows("larger, of unknown length", "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(6000, 'a'), {});
        rows("missing", page("gone", "404 Not Found"), {});
        rows("cut short", page(QByteArray(5000, 'a')).chopped(1000), {});
        rows("no HTTP", "hello\r\n\r\n", {});
        const WebServer target(page("moved"));
        rows("moved",
             "HTTP/1.1 302 Found\r\nLocation: " + target.address().toUtf8()
                 + "\r\nContent-Length: 0\r\n\r\n",
             "moved");
        FetchRules rules;
        rules.largest = 5000;
        for (const auto &[row, answer, body] : rows) {
            const WebServer server(answer);
            QCOMPARE(FetchUrl(server.address(), type, {}, 1024, fetchPost, rules), body);
        }
    }

    // What the server sees of the three kinds of request, and what is not asked for.
    void request()
    {
        const WebServer server(page("ok"));
        FetchUrl(server.address(), type, {}, 1024, fetchPost);
        QCOMPARE(type, u"text/plain"_s);
        const QByteArray asked = server.asked();
        QVERIFY(asked.startsWith("GET /postboard HTTP/1.1\n") && !asked.contains("Referer"));
        for (const char *header :
             {"User-Agent: Mozilla/4.0 (compatible; MSIE 5.5; Windows NT 5.0)\n",
              "Cache-Control: no-cache\n"})
            QVERIFY2(asked.contains(header), asked);
        FetchUrl(server.address(), type, u"race=1"_s, 1024, 0);
        QVERIFY(server.asked().startsWith("GET /postboard?race=1 HTTP/1.1\n"));
        FetchUrl(server.address(), type, u"race=1"_s, 1024, fetchPost);
        QVERIFY(server.asked().startsWith("POST /postboard HTTP/1.1\n"));
        QVERIFY(server.asked().contains("Content-Type: application/x-www-form-urlencoded\n"));
        QVERIFY(server.asked().endsWith("\n\nrace=1"));
        for (const QString &address : {u"http://127.0.0.1:1/postboard"_s, u"file:///etc/hosts"_s,
                                       server.address(u'/' + QString(1025, u'a'))})
            QCOMPARE(FetchUrl(address, type, {}, 1024, 1), QByteArray());
    }

    // A server that falls silent is given up.
    void silence()
    {
        FetchRules rules;
        const QByteArray begun = "HTTP/1.1 200 OK\r\n\r\n\"1\",\"1\",\"ALPHA\"\r\n";
        rules.silence = 100ms;
        const WebServer slow(begun, WebServer::Then::StayOpen);
        QCOMPARE(FetchUrl(slow.address(), type, {}, 1024, 1, rules), QByteArray());
    }

    // Nothing but the message: a page that is missing, of a hotel's network, or without a horse.
    void failures()
    {
        TestEvent event;
        for (const QByteArray &answer :
             {page(published, "404 Not Found"),
              page("\xef\xbb\xbf \n<html>\n1,2,\"sign in\"\nEND\n</html>"),
              page("\"0\",\"1\",\"ZERO\"\r\n\"END\""), page("5 servers are down"),
              page("1,1,\"sign in\"\r\n")}) {
            const WebServer server(answer);
            QWidget *screen = openScreen(event, server);
            const auto before = allFiles(event);
            event.boxes.expect(u"Internet not available"_s, u"TRELAWN"_s);
            clickButton(screen, u"cmdGo"_s);
            QCOMPARE(allFiles(event), before);
        }
    }

    // Twenty refused posts are told one by one, the rest are counted.
    void manyRefusedPosts()
    {
        TestEvent event;
        const WebServer server(
            page(published + QByteArray("\"22\",\"9\",\"HIGH\"\r\n").repeated(21) + "\"END\"\r\n"));
        QWidget *screen = openScreen(event, server);
        event.boxes.expect(u"Invalid post position - download error"_s, u"Horses"_s);
        for (int told = 1; told < 20; ++told)
            event.boxes.expect(u"Invalid post position-download error"_s, u"Horses"_s);
        event.boxes.expect(u"Download successful. Check track program for last minute changes."_s,
                           u"TRELAWN"_s);
        clickButton(screen, u"cmdGo"_s);
        QCOMPARE(event.note(), u"Further invalid post positions: 3"_s);
    }

    // A card comes into an event whose first race has horses on screen and bets on file.
    void runningEvent()
    {
        TestEvent event;
        const QByteArray old = horseRecords(cardOf({{5, 0, u"5"_s, u"OLD HORSE"_s}}));
        event.writeTwins(u"Horses Race1"_s, old);
        event.writeTwins(u"Bets Race1"_s, "1,5,1,2\r\n");
        event.write(u"Multibets Race4"_s, "1,2,0,\"EX\",2,1\r\n");
        const WebServer server(page(published));
        QWidget *screen = openScreen(event, server);
        QTRY_COMPARE(fieldText(screen, u"txthorse_4"_s), u"OLD HORSE"_s);
        event.boxes.expect(u"Invalid post position - download error"_s, u"Horses"_s);
        event.boxes.expect(u"Invalid post position-download error"_s, u"Horses"_s);
        event.boxes.expect(u"Download successful. Check track program for last minute changes."_s,
                           u"TRELAWN"_s);
        clickButton(screen, u"cmdGo"_s);
        QCOMPARE(event.read(u"postboard"_s), '"' + published + "\"\r\n");
        QVERIFY(event.read(u"Horses Race1"_s)
                    .startsWith("1,1,\"1 \",\"ALPHA\"\r\n2,1,\"1A\",\"BETA\"\r\n"
                                "3,0,\"  \",\"zzz\"\r\n"));
        QVERIFY(event.read(u"Horses Race2"_s).contains("\r\n3,0,\"3 \",\"GAMMA\"\r\n"));
        QCOMPARE(event.read(u"Horses Race12"_s).count("zzz"), 21);
        QCOMPARE(event.read(u"Horsesbackup Race1"_s), old);
        QCOMPARE(event.readTwins(u"Bets Race1"_s), "1,5,1,2\r\n");
        QCOMPARE(event.savedCopies(u"Horses Race1"_s), QByteArrayList{old});
        QCOMPARE(fieldText(screen, u"txthorse_0"_s), u"ALPHA"_s);
        QCOMPARE(event.note(),
                 u"Bets are already placed on Race1, Race4: check the horses there"_s);
        // The same card again replaces nothing, so that nothing more goes to Saved.
        const auto files = allFiles(event);
        saveDownload(event.session, published);
        QCOMPARE(allFiles(event), files);
    }

    // While it waits the window lives, the screen takes no input and stays, and Cancel ends it.
    void cancel()
    {
        TestEvent event;
        const WebServer silent({}, WebServer::Then::StayOpen);
        QWidget *screen = openScreen(event, silent);
        const auto before = allFiles(event);
        QTimer watch;
        connect(&watch, &QTimer::timeout, this, [&] {
            for (const QString &button : {u"cmdmainmenu"_s, u"cmdGo"_s})
                QTest::mouseClick(child<QWidget>(screen, button), Qt::LeftButton);
            if (auto *box = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget()))
                QTest::mouseClick(box->findChild<QPushButton *>(), Qt::LeftButton);
        });
        watch.start(20);
        clickButton(screen, u"cmdGo"_s);
        QCOMPARE(event.current(), screen);
        QCOMPARE(event.note(), u"Download cancelled: nothing was changed."_s);
        QCOMPARE(allFiles(event), before);
    }

    // The file beside Init, wherever the event directory is; without it the program's own address.
    void address()
    {
        TestEvent event;
        QVERIFY(downloadAddress(event.session).endsWith("/postboard"_L1));
        event.write(u"Download"_s, "\"http://example.invalid/club\"\r\n");
        event.session.settings.eventDirectory = u"D:\\Party\\"_s;
        QCOMPARE(downloadAddress(event.session), u"http://example.invalid/club"_s);
    }

private:
    // The race card of an event whose cards come from this server.
    static QWidget *openScreen(TestEvent &event, const WebServer &server)
    {
        event.write(u"Download"_s, '"' + server.address().toUtf8() + "\"\r\n");
        return event.open(u"frmhorsesb"_s);
    }

    QString type;
};

TRELAWN_TEST(tst_download)
#include "tst_download.moc"
