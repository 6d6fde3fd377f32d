#include "samples/filler_lines.h"

using Xport::ustring_view;

namespace samples {

std::span<const ustring_view> description_lines() {
  static constexpr ustring_view lines[] = {
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\ntdll.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\kernel32.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\user32.dll', Symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\msvcrt.dll', "
      u"Binary was not built with debug information.",
  };
  return lines;
}

std::span<const ustring_view> result_lines() {
  static constexpr ustring_view lines[] = {
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\advapi32.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\rpcrt4.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\gdi32.dll', Symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\ole32.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\oleaut32.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\shell32.dll', Symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\shlwapi.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\comctl32.dll', "
      u"Binary was not built with debug information.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\comdlg32.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\version.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\winmm.dll', Symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\ws2_32.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\wininet.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\urlmon.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\imm32.dll', Symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\uxtheme.dll', "
      u"Binary was not built with debug information.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\opengl32.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\glu32.dll', No symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\ddraw.dll', Symbols loaded.",
      u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\crypt32.dll', No symbols loaded.",
  };
  return lines;
}

}  // namespace samples
