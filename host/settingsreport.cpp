#include "settingsreport.h"

#include <host/durablefile.h>
#include <host/healthcheck.h>
#include <host/objectindex.h>
#include <host/pageaccess.h>
#include <host/settingspages.h>
#include <host/settingwords.h>

#include <vxsettings/dbsettingshelper.h>

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>

namespace {

constexpr int resolution = 300; // dots an inch
constexpr int margin = 18;      // millimetres
constexpr int pointSize = 9;
const QColor footerColor(0x55, 0x55, 0x55);

const QString styleSheet = QStringLiteral("th { text-align: left; background-color: #e8ecf1; }"
                                          "td { border-color: #c8ccd2; }"
                                          ".problem { color: #a02020; }"
                                          ".group { font-weight: bold; }");

QString cell(const QString &html)
{
    return QStringLiteral("<td width=\"50%\">%1</td>").arg(html);
}

QString table(const QString &title, const QString &rows)
{
    return QStringLiteral("<table width=\"100%\" border=\"1\" cellspacing=\"0\" cellpadding=\"4\" "
                          "style=\"border-collapse: collapse; border-style: solid; border-color: #c8ccd2;\">"
                          "<thead><tr><th colspan=\"2\">%1</th></tr></thead>%2</table><p></p>")
        .arg(title.toHtmlEscaped(), rows);
}
} // namespace

SettingsReport::SettingsReport(const Installation &stored, const QString &database, const QDateTime &at)
    : m_stored(stored)
    , m_database(database)
    , m_at(at)
    , m_findings(HealthCheck(stored.settings, ObjectIndex(stored.objects)).findings())
{}

QString SettingsReport::toHtml() const
{
    QString html =
        QStringLiteral("<style>%1</style><h1>%2</h1><p>%3<br/>%4<br/>%5</p><p></p>")
            .arg(styleSheet, tr("Настройки базы данных"), tr("База данных: %1").arg(m_database).toHtmlEscaped(),
                 tr("Дата: %1").arg(QLocale().toString(m_at.toLocalTime(), QLocale::LongFormat)),
                 tr("Замечаний: %1").arg(m_findings.size()));
    for (const SettingsPageName &page : settingsPages)
        html += pageHtml(page.group);
    return html + accessHtml() + unknownKeysHtml();
}

QString SettingsReport::pageHtml(DBGroups page) const
{
    QString rows;
    for (const SettingAddress &address : SettingAddress::all()) {
        if (SettingAddress{address.key}.group() == page)
            rows += rowHtml(address);
    }
    return table(DBSettingsHelper::groupName(page), rows);
}

QString SettingsReport::rowHtml(const SettingAddress &address) const
{
    if (address.isJsonObject())
        return QStringLiteral("<tr><td colspan=\"2\"><span class=\"group\">%1</span>%2</td></tr>")
            .arg(address.caption().toHtmlEscaped(), problemsHtml(address));
    const QString value = address.valueIn(m_stored.settings).value_or(QString());
    return QStringLiteral("<tr>%1%2</tr>")
        .arg(cell(address.caption().toHtmlEscaped()),
             cell(SettingWords::value(address, value).toHtmlEscaped() + problemsHtml(address)));
}

QString SettingsReport::problemsHtml(const SettingAddress &address) const
{
    QString html;
    for (const SettingFinding &finding : m_findings) {
        // A member that no editor shows has no row of its own.
        const bool isHere =
            finding.address == address ||
            (address.isJsonObject() && finding.address.key == address.key && !finding.address.isKnown());
        if (isHere)
            html += QStringLiteral("<br/><span class=\"problem\">%1</span>").arg(finding.words.toHtmlEscaped());
    }
    return html;
}

QString SettingsReport::accessHtml() const
{
    const SettingAddress access{PageAccess::KEY};
    const auto stored = access.valueIn(m_stored.settings);
    if (!stored)
        return {};
    QString words = SettingWords::value(access, *stored).toHtmlEscaped();
    for (const SettingFinding &finding : m_findings) {
        if (PageAccess::isAbout(finding.address))
            words += QStringLiteral("<br/><span class=\"problem\">%1</span>")
                         .arg(QStringLiteral("%1: %2").arg(finding.address.caption(), finding.words).toHtmlEscaped());
    }
    return table(access.caption(), QStringLiteral("<tr><td colspan=\"2\">%1</td></tr>").arg(words));
}

QString SettingsReport::unknownKeysHtml() const
{
    QString rows;
    for (const SettingFinding &finding : m_findings) {
        if (finding.problem == SettingProblem::Kind::UnknownKey)
            rows += QStringLiteral("<tr>%1%2</tr>")
                        .arg(cell(finding.address.text().toHtmlEscaped()), cell(finding.words.toHtmlEscaped()));
    }
    return rows.isEmpty() ? QString() : table(tr("Настройки, которых нет в каталоге"), rows);
}

QByteArray SettingsReport::toPdf() const
{
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setTitle(tr("Настройки базы данных"));
    writer.setCreator(QCoreApplication::applicationName());
    writer.setResolution(resolution);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);

    QPainter painter(&writer);
    QFont font = painter.font();
    font.setPointSize(pointSize);
    painter.setFont(font);
    painter.setPen(footerColor);
    const int footerHeight = 2 * painter.fontMetrics().lineSpacing();
    const QRectF body(0, 0, writer.width(), writer.height() - footerHeight);

    QTextDocument document;
    document.documentLayout()->setPaintDevice(&writer);
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    document.setHtml(toHtml());
    document.setPageSize(body.size());

    const int sheetCount = document.pageCount();
    for (int sheet = 0; sheet < sheetCount; ++sheet) {
        if (sheet > 0)
            writer.newPage();
        painter.save();
        painter.translate(0, -sheet * body.height());
        document.drawContents(&painter, body.translated(0, sheet * body.height()));
        painter.restore();
        painter.drawText(QRectF(0, body.bottom(), body.width(), footerHeight), Qt::AlignBottom | Qt::AlignRight,
                         footer(sheet + 1, sheetCount));
    }
    painter.end();
    return pdf.data();
}

QString SettingsReport::footer(int sheet, int sheetCount) const
{
    return tr("%1 — лист %2 из %3").arg(m_database).arg(sheet).arg(sheetCount);
}

std::optional<QString> SettingsReport::writePdf(const QString &path) const
{
    return DurableFile::write(path, toPdf(), DurableFile::Readers::AsUsual);
}
