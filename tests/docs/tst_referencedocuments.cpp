#include "messages.h"
#include "referencedocuments.h"

#include <host/translations.h>

#include <QDir>
#include <QFile>
#include <QTest>

class TestReferenceDocuments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isInTheTree_data();
    void isInTheTree();
    void nothingElseIsInTheTree();

private:
    Translations m_translations{QStringLiteral("vxsettingsctl")};
};

void TestReferenceDocuments::initTestCase()
{
    failOnUnexpectedMessages();
    QVERIFY(m_translations.setLanguage("en"));
}

void TestReferenceDocuments::isInTheTree_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("text");
    for (const ReferenceDocument &document : referenceDocuments())
        QTest::newRow(qPrintable(document.path)) << document.path << document.text;
}

void TestReferenceDocuments::isInTheTree()
{
    QFETCH(QString, path);
    QFETCH(QString, text);
    QFile file(DOCS "/" + path);
    QVERIFY2(file.open(QIODevice::ReadOnly), "missing; run scripts/update-reference.sh");
    const QStringList found = QString::fromUtf8(file.readAll()).split('\n');
    const QStringList expected = text.split('\n');
    for (int line = 0; line < qMax(found.size(), expected.size()); ++line) {
        const QString difference = QStringLiteral("docs/%1:%2 is not what the catalogue says; run "
                                                  "scripts/update-reference.sh\n  there:     %3\n  catalogue: %4")
                                       .arg(path)
                                       .arg(line + 1)
                                       .arg(found.value(line), expected.value(line));
        QVERIFY2(found.value(line) == expected.value(line), qPrintable(difference));
    }
    QCOMPARE(found.size(), expected.size());
}

/// A schema whose setting is gone.
void TestReferenceDocuments::nothingElseIsInTheTree()
{
    QStringList expected;
    for (const ReferenceDocument &document : referenceDocuments())
        expected.append(document.path);
    QStringList found{"reference.md"};
    for (const QString &name : QDir(DOCS "/schema").entryList(QDir::Files))
        found.append("schema/" + name);
    expected.sort();
    found.sort();
    QCOMPARE(found, expected);
}

QTEST_MAIN(TestReferenceDocuments)
#include "tst_referencedocuments.moc"
