#include <plix/plix.h>

#include <iostream>

using namespace plix;

int main()
{
    NSApplication::sharedApplication();
    auto const table = make<NSTableView>(Rect { 0, 0, 200, 100 });
    table->addTableColumn(*make<NSTableColumn>("name"));
    NSTableViewDataSource rows;
    rows.numberOfRowsInTableView = [](NSTableView&) { return 3L; };
    table->setDataSourceHooks(rows);
    NSTableViewDelegate answers;
    answers.shouldSelectRow = [](NSTableView&, long row) { return row != 0; };
    table->setDelegateHooks(answers);

    table->selectRowIndexes(NSIndexSet::indexSetWithIndex(2), false);
    auto const point = table->convertPointToView({ 10, 20 }, nullptr);
    std::cout << table->numberOfRows() << " rows, row " << table->selectedRow() << " is selected, " << NSStringFromPoint(point)
              << '\n';
    std::cout << NSStringFromClass(*table->isa().superclass()) << '\n';
}
