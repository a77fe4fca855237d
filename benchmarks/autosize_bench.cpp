#include "autosize_peer.h"
#include "bench.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <plix/tables/PLIXTableView.h>
#include <plix/tables/table_column_additions.h>

#include <charconv>
#include <cstdio>
#include <string>

namespace plix::bench {

namespace {

constexpr long rowCount = 100000;

std::string numberedText(long row)
{
    std::string text = "Row ";
    char digits[24];
    auto const append = [&](long number) { text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr); };
    append(row);
    text += ", value ";
    append(row * 7919 % 100003);
    return text;
}

/// With marks that stand above letters: no table of advances knows where.
std::string shapedText(long row)
{
    return "Re\u0301sume\u0301 " + std::to_string(row);
}

class Rows final : public NSObject {
public:
    long numberOfRowsInTableView(NSTableView&) { return rowCount; }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn&, long row) { return textOfRow(row); }
    std::string (*textOfRow)(long) { numberedText };
};

/// A table of eight columns in a machine of its own.
class Sheet {
public:
    explicit Sheet(std::string (*textOfRow)(long))
    {
        installHost(std::make_unique<HeadlessHost>());
        rows = make<Rows>();
        rows->textOfRow = textOfRow;
        table = make<PLIXTableView>(Rect { 0, 0, 1000, 800 });
        for (int i = 0; i < 8; ++i) {
            auto const column = make<NSTableColumn>(ObjectValue(i));
            column->dataCell()->setFont(NSFont::systemFontOfSize(13));
            table->addTableColumn(*column);
        }
        table->setDataSource(rows);
    }
    ~Sheet()
    {
        table = nullptr;
        NSApp = nullptr;
        installHost(nullptr);
    }
    Sheet(Sheet const&) = delete;
    Sheet& operator=(Sheet const&) = delete;

    void fit() const
    {
        auto& column = *table->tableColumns()[3];
        column.setWidth(50);
        sizeToFitData(column);
    }

    Ref<Rows> rows;
    Ref<PLIXTableView> table;
};

void measure(Figure& figure, std::string (*textOfRow)(long))
{
    Sheet const sheet(textOfRow);
    Work const ours { [&] { sheet.fit(); } };
#ifdef PLIX_BENCH_QT
    figure.timeAgainst("QTableView, resizeColumnToContents", ours, { qtAutosize(rowCount, textOfRow) });
#else
    figure.time(ours);
#endif
}

}

PLIX_FIGURE("table.autosize")
{
    figure.setRuns(7);
    figure.wantRatio(30);
    measure(figure, numberedText);
}

PLIX_FIGURE("table.autosize_shaped")
{
    figure.setRuns(5);
    measure(figure, shapedText);
}

}
