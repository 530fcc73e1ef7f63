#undef QT_NO_CAST_FROM_ASCII // plain literals keep the tables readable

#include "platform/linux/icons/Laurel.h"
#include "tests/SourceTree.h"

#include <QFile>

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(Laurel, TheIconFilesAreDrawnFromIt)
{
    struct Row {
        QString file;
        QString svg;
    };
    Row const rows[] = {
        { "scalable/apps/org.zanthevell.ZantheVell.svg", laurel::applicationSvg() },
        { "symbolic/apps/org.zanthevell.ZantheVell-symbolic.svg", laurel::symbolicSvg() },
    };
    for (auto const& row : rows) {
        QFile file(QString::fromStdString(tests::inSourceTree("packaging/linux/icons/hicolor/")) + row.file);
        ASSERT_TRUE(file.open(QFile::ReadOnly)) << row.file.toStdString();
        EXPECT_EQ(QString::fromUtf8(file.readAll()), row.svg) << row.file.toStdString() << ": run draw-icons";
    }
}

} // namespace
} // namespace zv
