// Reading UTF-8 one character at a time, strictly: overlong forms,
// surrogates and values above U+10FFFF are invalid.
#ifndef RixsaxUtf8_h
#define RixsaxUtf8_h

#include <cstddef>
#include <string_view>

// The character at ioPosition, which moves past it; -1 for an invalid
// sequence, after which ioPosition has moved by one byte.
inline long RixsaxNextCharacter(std::string_view iText, std::size_t& ioPosition)
{
  const unsigned char First = static_cast<unsigned char>(iText[ioPosition]);
  if (First < 0x80)
  {
    ++ioPosition;
    return First;
  }
  std::size_t Length = 0;
  long Character = 0;
  long Minimum = 0;
  if (First >= 0xC2 && First <= 0xDF)
  {
    Length = 2;
    Character = First & 0x1F;
    Minimum = 0x80;
  }
  else if (First >= 0xE0 && First <= 0xEF)
  {
    Length = 3;
    Character = First & 0x0F;
    Minimum = 0x800;
  }
  else if (First >= 0xF0 && First <= 0xF4)
  {
    Length = 4;
    Character = First & 0x07;
    Minimum = 0x10000;
  }
  if (Length == 0 || iText.size() - ioPosition < Length)
  {
    ++ioPosition;
    return -1;
  }
  for (std::size_t i = 1; i < Length; ++i)
  {
    const unsigned char Next = static_cast<unsigned char>(iText[ioPosition + i]);
    if ((Next & 0xC0) != 0x80)
    {
      ++ioPosition;
      return -1;
    }
    Character = (Character << 6) | (Next & 0x3F);
  }
  if (Character < Minimum || Character > 0x10FFFF || (Character >= 0xD800 && Character <= 0xDFFF))
  {
    ++ioPosition;
    return -1;
  }
  ioPosition += Length;
  return Character;
}

#endif
