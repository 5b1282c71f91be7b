# Makes one C++ file of the samples in the guides: each "cpp" block that is no whole program becomes the body of a function
# in which a few names are known. Errors are told at the lines of the guide.
function flush() {
    if (body != "" && body !~ /int main/)
        printf "void sample%d(%s)\n{\n{\n#line %d \"%s\"\n%s}\n}\n\n", ++count, names, line, FILENAME, body
}
BEGIN {
    headers = "DBParamWidget DBSettingsGroup DBSettingsGroupFactory DBSettingsHelper"
    for (i = split(headers, header, " "); i > 0; --i)
        printf "#include <vxsettings/%s.h>\n", tolower(header[i])
    print "#include <QCoreApplication>\n#include <QLocale>\n#include <QTranslator>\n#include <QVBoxLayout>\n"
    print "QString tr(const char *text);\n"
    names = "[[maybe_unused]] QWidget *dialog, [[maybe_unused]] QVBoxLayout *layout, " \
            "[[maybe_unused]] const std::unique_ptr<DBSettings> &page, [[maybe_unused]] DBParamWidget *editor, " \
            "[[maybe_unused]] const QString &key, [[maybe_unused]] const QVariant &value, " \
            "[[maybe_unused]] const QString &storedWords"
}
/^ *```cpp$/ { inside = 1; body = ""; line = FNR + 1; next }
/^ *```$/ && inside { inside = 0; flush(); next }
inside { body = body $0 "\n" }
END { if (count == 0) exit 1 }
