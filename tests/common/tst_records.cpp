#include "common/betrecords.h"
#include "common/bettors.h"
#include "common/horses.h"
#include "common/recordfile.h"
#include "kit/testkit.h"

using namespace Qt::StringLiterals;

// The record line and what damage may do to it.
class tst_records : public QObject
{
    Q_OBJECT

private slots:
    void number_data();
    void number();
    void split_data();
    void split();
    void fieldValue_data();
    void fieldValue();
    void lines_data();
    void lines();
    void text_data();
    void text();
    void bet_data();
    void bet();
    void rewriteKeepsOtherLines();
    void truncation();
    void damage_data();
    void damage();
};

void tst_records::number_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("whole") << 5.0F << QByteArray("5");
    QTest::newRow("leading zero") << 0.25F << QByteArray("0.25");
    QTest::newRow("seven digits") << 1234.567F << QByteArray("1234.567");
    QTest::newRow("seven digits of a third") << 1 / 3.0F << QByteArray("0.3333333");
    QTest::newRow("no exponent, large") << 20000000.0F << QByteArray("20000000");
    QTest::newRow("no exponent, small") << 0.00001F << QByteArray("0.00001");
    QTest::newRow("negative") << -2.5F << QByteArray("-2.5");
    QTest::newRow("zero") << 0.0F << QByteArray("0");
}

void tst_records::number()
{
    QFETCH(float, value);
    QTEST(QByteArray::fromStdString(recordNumber(value)), "text");
}

void tst_records::split_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArrayList>("fields"); // none: damaged
    using List = QByteArrayList;
    QTest::newRow("bare and quoted") << QByteArray(R"(1,"ANNA")") << List{"1", "ANNA"};
    QTest::newRow("comma in quotes") << QByteArray(R"(1,"A, B",2)") << List{"1", "A, B", "2"};
    QTest::newRow("blanks round fields")
        << QByteArray(" 1 ,\t\" A \" , x y ") << List{"1", " A ", "x y"};
    QTest::newRow("empty fields") << QByteArray(",\"\",") << List{"", "", ""};
    QTest::newRow("open quote") << QByteArray(R"(1,"ANNA)") << List{};
    QTest::newRow("text after a quote") << QByteArray(R"(1,"A"B,2)") << List{};
    QTest::newRow("quote in a bare field") << QByteArray(R"(1,A"B")") << List{};
}

void tst_records::split()
{
    QFETCH(QByteArray, line);
    std::vector<RecordField> fields;
    QByteArrayList found;
    if (splitRecord(view(line), fields)) {
        for (const RecordField &field : fields)
            found.append(QByteArray(field.text.data(), qsizetype(field.text.size())));
    }
    QTEST(found, "fields");
}

void tst_records::fieldValue_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<bool>("good");
    QTest::addColumn<double>("value");
    QTest::newRow("leading point") << QByteArray(".25") << true << 0.25;
    QTest::newRow("plus") << QByteArray("+5") << true << 5.0;
    QTest::newRow("blanks") << QByteArray(" 12 ") << true << 12.0;
    QTest::newRow("exponent") << QByteArray("1E3") << true << 1000.0;
    QTest::newRow("two signs") << QByteArray("+-5") << false << 0.0;
    QTest::newRow("decimal comma") << QByteArray("1,5") << false << 0.0;
    QTest::newRow("text after") << QByteArray("5x") << false << 0.0;
    QTest::newRow("empty") << QByteArray() << false << 0.0;
    QTest::newRow("not a number") << QByteArray("nan") << false << 0.0;
    QTest::newRow("infinite") << QByteArray("inf") << false << 0.0;
    QTest::newRow("too large") << QByteArray("1e999") << false << 0.0;
}

void tst_records::fieldValue()
{
    QFETCH(QByteArray, field);
    const auto value = fieldNumber({view(field), true});
    QTEST(value.has_value(), "good");
    QTEST(value.value_or(0), "value");
    QCOMPARE(fieldInteger({"21.0", false}, 1, 21), std::optional(21));
    QVERIFY(!fieldInteger({"2.5", false}, 1, 21));
    QVERIFY(!fieldInteger({"22", false}, 1, 21));
}

void tst_records::lines_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArrayList>("lines");
    using List = QByteArrayList;
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << List{"a", "b"};
    QTest::newRow("LF") << QByteArray("a\nb\n") << List{"a", "b"};
    QTest::newRow("CR CR LF") << QByteArray("a\r\r\nb\r\r\n") << List{"a", "b"};
    QTest::newRow("LF CR") << QByteArray("a\n\rb\n\r") << List{"a", "b", ""};
    QTest::newRow("unfinished last line") << QByteArray("a\r\nb") << List{"a", "b"};
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf"
                                                   "a\r\n")
                                     << List{"a"};
    QTest::newRow("end-of-file mark") << QByteArray("a\r\n\x1a") << List{"a", ""};
    QTest::newRow("end-of-file mark on the line") << QByteArray("a\r\nb\x1a") << List{"a", "b"};
    QTest::newRow("appended after the mark") << QByteArray("a\r\n\x1a"
                                                           "b\r\n")
                                             << List{"a", "b"};
    QTest::newRow("empty") << QByteArray() << List{};
}

void tst_records::lines()
{
    QFETCH(QByteArray, bytes);
    std::string_view rest = view(bytes);
    std::string_view line;
    QByteArrayList found;
    while (nextRecordLine(rest, line))
        found.append(QByteArray(line.data(), qsizetype(line.size())));
    QTEST(found, "lines");
}

void tst_records::text_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("UTF-8") << QByteArray("JOS\xc3\x89") << u"JOS\u00c9"_s;
    QTest::newRow("Windows-1252 inside") << QByteArray("REN\xc9"
                                                       "E")
                                         << u"REN\u00c9E"_s;
    QTest::newRow("Windows-1252 last letter") << QByteArray("JOS\xc9") << u"JOS\u00c9"_s;
    QTest::newRow("Windows-1252 euro and quote") << QByteArray("\x80 \x92") << u"\u20ac \u2019"_s;
}

void tst_records::text()
{
    QFETCH(QByteArray, bytes);
    QTEST(decodeText(view(bytes)), "text");
}

void tst_records::bet_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("good");
    QTest::newRow("plain") << QByteArray("12,3,1,0.25") << true;
    QTest::newRow("classic") << QByteArray(" 12 , 3 ,\"1\", .25 ") << true;
    QTest::newRow("exponent") << QByteArray("12,3,1,2.5E-1") << true;
    QTest::newRow("three fields") << QByteArray("12,3,1") << false;
    QTest::newRow("cut off after the comma") << QByteArray("12,3,1,") << false;
    QTest::newRow("five fields") << QByteArray("12,3,1,0.25,7") << false;
    QTest::newRow("text") << QByteArray("12,3,1,five") << false;
    QTest::newRow("beyond single precision") << QByteArray("12,3,1,1e39") << false;
}

void tst_records::bet()
{
    QFETCH(QByteArray, line);
    Bet read;
    const bool good = parseBet(view(line), read);
    QTEST(good, "good");
    if (good)
        QCOMPARE(read, (Bet{12, 3, 1, 0.25F}));
    QCOMPARE(betLine({12, 3, 1, 0.25F}), "12,3,1,0.25\r\n");
}

// A rewrite drops what it means to drop; every other line, damaged ones too, keeps its bytes.
void tst_records::rewriteKeepsOtherLines()
{
    const BetTable bets =
        parseBets("1,2,1,5.00\n\"oops\r\n 1 ,\"2\",1,.50\r\n\xff junk\r\n1,3,1,5");
    QCOMPARE(bets.rows.size(), 5);
    QCOMPARE(bets.damagedRows(), 2);
    const auto thirdPost = [](const BetRow &row) { return row.bet.post == 3; };
    QCOMPARE(betFileWithout(bets, thirdPost),
             "1,2,1,5.00\r\n\"oops\r\n 1 ,\"2\",1,.50\r\n\xff junk\r\n");
}

// A file cut at any byte loses no line before the cut.
void tst_records::truncation()
{
    const QByteArray bets = "1,1,1,5\r\n2,12,2,100\r\n3,4,3,0.25\r\n";
    const QByteArray names = "1,\"AnyBettor\"\r\n2,\"O'HARA, ANN\"\r\n3,\"JOS\xc3\x89\"\r\n";
    const QByteArray horses = "1,0,\"1 \",\"A\"\r\n2,9,\"1A\",\"B, C\"\r\n21,0,\"  \",\"\"\r\n";
    for (qsizetype size = 0; size <= names.size(); ++size) {
        const auto whole = [&](const QByteArray &bytes) { return bytes.left(size).count("\r\n"); };
        const BetTable table = parseBets(bets.left(size).toStdString());
        QVERIFY(qsizetype(table.rows.size()) >= whole(bets));
        for (qsizetype row = 0; row < whole(bets); ++row)
            QCOMPARE(table.rows[std::size_t(row)].bet.bettor, float(row + 1));
        const BettorTable bettors = BettorTable::parse(names.left(size), 3);
        for (int slot = 1; slot <= whole(names); ++slot)
            QCOMPARE(bettors.slot(slot).number, slot);
        const HorseFile card = parseHorses(horses.left(size));
        if (whole(horses) > 0)
            QCOMPARE(card.horses.post(1).name, u"A"_s);
        if (whole(horses) > 1)
            QCOMPARE(card.horses.post(2).pool, 9);
    }
}

void tst_records::damage_data()
{
    QTest::addColumn<QByteArray>("junk");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("quote alone") << QByteArray("\"");
    QTest::newRow("three quotes") << QByteArray("1,\"\"\",2");
    QTest::newRow("swapped quotes") << QByteArray("1\",2,\"3,4");
    QTest::newRow("only commas") << QByteArray(",,,,,,,,");
    QTest::newRow("zero bytes") << QByteArray(9, '\0');
    QTest::newRow("bytes of no encoding") << QByteArray("\xff\xfe\x81\x8d");
    QTest::newRow("byte order mark inside") << QByteArray("\xef\xbb\xbf");
    QTest::newRow("carriage returns") << QByteArray("\r\r\r");
    QTest::newRow("end-of-file marks") << QByteArray("\x1a\x1a");
    QTest::newRow("huge numbers") << QByteArray("99999999999999999999,1e308,-1e308,1e-320");
    QTest::newRow("largest whole number") << QByteArray("2147483647,\"X\"");
    QTest::newRow("post 0") << QByteArray("0,0,\"\",\"\"");
    QTest::newRow("post 22") << QByteArray("22,0,\"\",\"\"");
    QTest::newRow("very long") << QByteArray(100000, '7');
}

// Junk on a line of its own, before, between or after, touches no other line.
void tst_records::damage()
{
    QFETCH(QByteArray, junk);
    const auto around = [&](const QByteArray &first, const QByteArray &second) -> QByteArray {
        return junk + "\r\n" + first + "\r\n" + junk + '\n' + second + "\r\n" + junk;
    };
    const BetTable bets = parseBets(around("1,1,1,5", "2,21,3,7").toStdString());
    QList<float> posts;
    for (const BetRow &row : bets.rows) {
        if (!row.damaged && isCountable(row.bet))
            posts.append(row.bet.post);
    }
    QCOMPARE(posts, (QList<float>{1, 21}));
    QCOMPARE(poolsOf(bets).amount(totalsRow, totalColumn), 12.0F);

    const BettorTable bettors = BettorTable::parse(around("1,\"AnyBettor\"", "2,\"ANNA\""), 1);
    QCOMPARE(bettors.nameOf(1), u"AnyBettor"_s);
    QCOMPARE(bettors.numberOf(u"ANNA"_s), 2);
    QCOMPARE(BettorTable::parse(bettors.records(), 1).records(), bettors.records());

    const HorseFile card = parseHorses(around("1,0,\"1 \",\"A\"", "21,3,\"1A\",\"B\""));
    QCOMPARE(card.horses.post(1).number, u"1"_s);
    QCOMPARE(card.horses.post(21).pool, 3);
}

TRELAWN_TEST_MAIN(tst_records)
#include "tst_records.moc"
