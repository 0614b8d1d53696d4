#include "macro/error.h"

namespace tv::macro {

namespace {

struct ErrorText
{
    int32_t number;
    std::u16string_view words;
};

constexpr ErrorText kErrorTexts[] = {
    {3, u"Return without GoSub"},
    {5, u"Invalid procedure call or argument"},
    {6, u"Overflow"},
    {7, u"Out of memory"},
    {9, u"Subscript out of range"},
    {10, u"This array is fixed or temporarily locked"},
    {11, u"Division by zero"},
    {13, u"Type mismatch"},
    {14, u"Out of string space"},
    {16, u"Expression too complex"},
    {17, u"Can't perform requested operation"},
    {18, u"User interrupt occurred"},
    {20, u"Resume without error"},
    {28, u"Out of stack space"},
    {35, u"Sub or Function not defined"},
    {47, u"Too many DLL application clients"},
    {48, u"Error in loading DLL"},
    {49, u"Bad DLL calling convention"},
    {51, u"Internal error"},
    {52, u"Bad file name or number"},
    {53, u"File not found"},
    {54, u"Bad file mode"},
    {55, u"File already open"},
    {57, u"Device I/O error"},
    {58, u"File already exists"},
    {59, u"Bad record length"},
    {61, u"Disk full"},
    {62, u"Input past end of file"},
    {63, u"Bad record number"},
    {67, u"Too many files"},
    {68, u"Device unavailable"},
    {70, u"Permission denied"},
    {71, u"Disk not ready"},
    {74, u"Can't rename with different drive"},
    {75, u"Path/File access error"},
    {76, u"Path not found"},
    {91, u"Object variable or With block variable not set"},
    {92, u"For loop not initialized"},
    {93, u"Invalid pattern string"},
    {94, u"Invalid use of Null"},
    {96, u"Unable to sink events of object because the object is already firing events to the maximum number of event "
         u"receivers that it supports"},
    {97, u"Can not call friend function on object which is not an instance of defining class"},
    {98, u"A property or method call cannot include a reference to a private object, either as an argument or as a "
         u"return value"},
    {321, u"Invalid file format"},
    {322, u"Can't create necessary temporary file"},
    {325, u"Invalid format in resource file"},
    {380, u"Invalid property value"},
    {381, u"Invalid property array index"},
    {382, u"Set not supported at runtime"},
    {383, u"Set not supported (read-only property)"},
    {385, u"Need property array index"},
    {387, u"Set not permitted"},
    {393, u"Get not supported at runtime"},
    {394, u"Get not supported (write-only property)"},
    {422, u"Property not found"},
    {423, u"Property or method not found"},
    {424, u"Object required"},
    {429, u"ActiveX component can't create object"},
    {430, u"Class does not support Automation or does not support expected interface"},
    {432, u"File name or class name not found during Automation operation"},
    {438, u"Object doesn't support this property or method"},
    {440, u"Automation error"},
    {442, u"Connection to type library or object library for remote process has been lost. Press OK for dialog to "
          u"remove reference."},
    {443, u"Automation object does not have a default value"},
    {445, u"Object doesn't support this action"},
    {446, u"Object doesn't support named arguments"},
    {447, u"Object doesn't support current locale setting"},
    {448, u"Named argument not found"},
    {449, u"Argument not optional"},
    {450, u"Wrong number of arguments or invalid property assignment"},
    {451, u"Property let procedure not defined and property get procedure did not return an object"},
    {452, u"Invalid ordinal"},
    {453, u"Specified DLL function not found"},
    {454, u"Code resource not found"},
    {455, u"Code resource lock error"},
    {457, u"This key is already associated with an element of this collection"},
    {458, u"Variable uses an Automation type not supported in Visual Basic"},
    {459, u"Object or class does not support the set of events"},
    {460, u"Invalid clipboard format"},
    {461, u"Method or data member not found"},
    {462, u"The remote server machine does not exist or is unavailable"},
    {463, u"Class not registered on local machine"},
    {481, u"Invalid picture"},
    {482, u"Printer error"},
    {735, u"Can't save file to TEMP"},
    {744, u"Search text not found"},
    {746, u"Replacements too long"},
};

struct ResultNumber
{
    uint32_t result;
    int32_t number;
};

constexpr ResultNumber kResultNumbers[] = {
    {0x80004001, kActionNotSupported},   // not implemented
    {0x80004002, kNoAutomation},         // no such interface
    {0x80020003, kNoSuchMember},         // member not found
    {0x80020004, kNamedArgumentNotFound}, // parameter not found
    {0x80020005, kTypeMismatch},
    {0x80020006, kNoSuchMember}, // unknown name
    {0x80020007, kNamedArgumentsNotSupported},
    {0x80020008, kTypeNotSupported},
    {0x8002000A, kOverflow},
    {0x8002000B, kSubscriptOutOfRange},
    {0x8002000E, kWrongArgumentCount},
    {0x8002000F, kArgumentNotOptional},
    {0x80020012, kDivisionByZero},
    {0x80030002, kFileNotFound},
    {0x80030003, kPathNotFound},
    {0x80030005, kPermissionDenied},
    {0x80040154, kCannotCreateObject}, // class not registered
    {0x80070005, kPermissionDenied},
    {0x8007000E, kOutOfMemory},
    {0x80070057, kInvalidCall},
    {0x800706BA, 462}, // the server is gone
    {0x80080005, kCannotCreateObject},
};

} // namespace

std::u16string_view ErrorDescription(int32_t number)
{
    for (const ErrorText& row : kErrorTexts) {
        if (row.number == number) {
            return row.words;
        }
    }
    return number < 0 ? u"Automation error" : u"Application-defined or object-defined error";
}

MacroError::MacroError(int32_t errorNumber) : MacroError(errorNumber, std::u16string(ErrorDescription(errorNumber))) {}

MacroError::MacroError(int32_t errorNumber, std::u16string words, std::u16string origin)
    : number(errorNumber), description(std::move(words)), source(std::move(origin))
{
}

MacroError MacroError::FromResult(int32_t result, std::u16string description, std::u16string source)
{
    constexpr uint32_t kControlFacility = 0x800A0000;
    uint32_t code = static_cast<uint32_t>(result);
    int32_t number = result;
    if ((code & 0xFFFF0000) == kControlFacility) {
        number = static_cast<int32_t>(code & 0xFFFF);
    }
    for (const ResultNumber& row : kResultNumbers) {
        if (row.result == code) {
            number = row.number;
        }
    }
    if (description.empty()) {
        description = ErrorDescription(number);
    }
    return MacroError(number, std::move(description), std::move(source));
}

void Raise(int32_t number) { throw MacroError(number); }

} // namespace tv::macro
