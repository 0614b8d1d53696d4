' A conversion's result has the declared type, so that reckoning with it overflows as with a variable.
'> Integer Long Double Single Currency String Boolean Date Byte LongLong
'! 6 Overflow
Sub main()
    Debug.Print TypeName(CInt(1)) & " " & TypeName(CLng(1)) & " " & TypeName(CDbl(1)) & " " & TypeName(CSng(1)) & " " & _
        TypeName(CCur(1)) & " " & TypeName(CStr(1)) & " " & TypeName(CBool(1)) & " " & TypeName(CDate(1)) & " " & _
        TypeName(CByte(1)) & " " & TypeName(CLngPtr(1))
    x = CInt(200) * CInt(200)
End Sub
