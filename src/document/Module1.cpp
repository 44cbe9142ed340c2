#include "document/Module1.h"

namespace quorrin::Module1 {

std::string sep;
Ref<FolderItem> gOpenFile;
Ref<iniClass> myINI;
Ref<PrinterSetup> myPrinterSetup;
Ref<Picture> gPicture;
Ref<Picture> pMain;
Ref<cCharacter> useThisCharacter;
bool gSkipWallColor = false;

} // namespace quorrin::Module1
