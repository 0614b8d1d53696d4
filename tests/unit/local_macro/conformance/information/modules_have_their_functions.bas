' Each module of the language gives its own functions.
'> b 2 3 255 C: True 2 yes
Sub main()
    Debug.Print Strings.Mid$("abc", 2, 1) & " " & Math.Abs(-2) & " " & Conversion.Int(3.5) & " " & VBA.DateTime.Month(DateSerial(2026, 2, 1)) + 253 & " " & Left(FileSystem.CurDir, 2) & " " & Information.IsArray(Array()) & " " & Financial.SLN(10, 4, 3) & " " & Interaction.IIf(True, "yes", "no")
End Sub
