#include "common/event/bettors.h"
#include "common/files/recordfile.h"
#include "kit/testkit.h"

// The record line and what damage may do to it.
class tst_records : public QObject
{
    Q_OBJECT

private slots:
    void number()
    {
        const std::pair<float, std::string> numbers[] = {
            {1234.567F, "1234.567"}, {20000000.0F, "20000000"}, {0.00001F, "0.00001"}};
        for (const auto &[value, text] : numbers) // seven digits, never an exponent
            QCOMPARE(recordNumber(value), text);
    }

    void split()
    {
        Rows<QByteArray, QByteArrayList> rows;
        rows("a comma in quotes", "1,\"A, B\",2", {"1", "A, B", "2"});
        rows("blanks round fields", " 1 ,\t\" A \" , x y ", {"1", " A ", "x y"});
        rows("damaged: open quote", "1,\"ANNA", {});
        rows("damaged: quote within", "1,A\"B\"", {});
        for (const auto &[row, line, expected] : rows) {
            std::vector<RecordField> fields;
            QByteArrayList found;
            if (splitRecord(view(line), fields)) {
                for (const RecordField &field : fields)
                    found.append(QByteArray(field.text.data(), qsizetype(field.text.size())));
            }
            QCOMPARE(found, expected);
        }
    }

    void fieldValue()
    {
        const std::pair<QByteArray, double> numbers[] = {{".25", 0.25}, {"+5", 5}, {" 1E3 ", 1000}};
        for (const auto &[field, value] : numbers)
            QCOMPARE(fieldNumber({view(field), true}), std::optional(value));
        for (const char *field : {"+-5", "1,5", "5x", "", "nan", "inf", "1e999"})
            QVERIFY2(!fieldNumber({field, true}), field);
        QCOMPARE(fieldInteger({"21.0", false}, 1, 21), std::optional(21));
        for (const char *field : {"2.5", "22", "0"})
            QVERIFY2(!fieldInteger({field, false}, 1, 21), field);
    }

    void lines()
    {
        Rows<QByteArray, QByteArrayList> rows;
        rows("none", {}, {});
        rows("ends of this system", "a\r\nb\r\n", {"a", "b"});
        rows("of another system", "a\n\rb\n\r", {"a", "b", ""});
        rows("byte order mark", QByteArray("\xef\xbb\xbf") + "a\r\nb", {"a", "b"});
        rows("appended after an end-of-file mark", QByteArray("a\r\n\x1a") + "b\r\n", {"a", "b"});
        for (const auto &[row, bytes, expected] : rows) {
            std::string_view rest = view(bytes);
            std::string_view line;
            QByteArrayList found;
            while (nextRecordLine(rest, line))
                found.append(QByteArray(line.data(), qsizetype(line.size())));
            QCOMPARE(found, expected);
        }
    }

    void text()
    {
        QCOMPARE(decodeText("JOS\xc3\x89"), u"JOS\u00c9"_s); // UTF-8
        QCOMPARE(decodeText("JOS\xc9"), u"JOS\u00c9"_s); // Windows-1252, its last letter cut off
        QCOMPARE(decodeText("REN\xc9\x45 \x80"), u"REN\u00c9E \u20ac"_s);
    }

    void bet()
    {
        Bet read;
        for (const char *line : {"12,3,1,0.25", " 12 , 3 ,\"1\", .25 ", "12,3,1,2.5E-1"}) {
            QVERIFY2(parseBet(line, read), line);
            QCOMPARE(read, (Bet{12, 3, 1, 0.25F}));
        }
        for (const char *line : {"12,3,1,", "12,3,1,0.25,7", "12,3,1,five", "12,3,1,1e39"})
            QVERIFY2(!parseBet(line, read), line);
        QCOMPARE(betLine({12, 3, 1, 0.25F}), "12,3,1,0.25\r\n");
    }

    // Junk on a line of its own, before, between or after, touches no other line.
    void damage()
    {
        for (const QByteArray &junk : {QByteArray(), QByteArray("1\",2,\"3,4"), QByteArray(9, '\0'),
                                       QByteArray("\xff\xfe\x81\x8d"), QByteArray(100000, '7')}) {
            const auto around = [&](const QByteArray &first, const QByteArray &second) {
                return QByteArray(junk + "\r\n" + first + "\r\n" + junk + '\n' + second + "\r\n"
                                  + junk);
            };
            const BetTable bets = parseBets(around("1,1,1,5", "2,21,3,7").toStdString());
            QCOMPARE(poolsOf(bets).amount(1, totalColumn), 5.0F);
            QCOMPARE(poolsOf(bets).amount(21, totalColumn), 7.0F);
            QCOMPARE(poolsOf(bets).amount(totalsRow, totalColumn), 12.0F);

            const BettorTable bettors =
                BettorTable::parse(around("1,\"AnyBettor\"", "2,\"ANNA\""), 1);
            QCOMPARE(bettors.nameOf(1), u"AnyBettor"_s);
            QCOMPARE(bettors.numberOf(u"ANNA"_s), 2);
            QCOMPARE(BettorTable::parse(bettors.records(), 1).records(), bettors.records());

            const HorseFile card = parseHorses(around("1,0,\"1 \",\"A\"", "21,3,\"1A\",\"B\""));
            QCOMPARE(card.horses.post(1).number, u"1"_s);
            QCOMPARE(card.horses.post(21).pool, 3);
        }
    }
};

TRELAWN_TEST(tst_records)
#include "tst_records.moc"
