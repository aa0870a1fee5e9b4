#include "dialogs/print/PrintSettings.h"

#include "app/services/Language.h"
#include "grid/SpreadGrid.h"

PrintSettings SharedPrintSettings;

GridPrintOptions gridPrintOptions(const SpreadGrid &grid, const PrintSettings &settings, const QString &title)
{
    GridPrintOptions options;
    options.type = GridPrintType(settings.type);
    options.block = grid.selectedBlock();
    options.pageFrom = settings.pageFrom;
    options.pageTo = settings.pageTo;
    options.header.addCodes(u"/l").addText(ResString(Text::PageFileName)).addText(title).addCodes(u"/n");
    options.footer.addCodes(u"/c /p");
    options.abortText = ResString(Text::PrintAbort);
    options.cancelText = ResString(Text::Cancel);
    return options;
}
