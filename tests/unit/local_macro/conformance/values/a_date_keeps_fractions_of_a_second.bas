' A Date variable takes fractions of a second, although it shows none.
'> True False
Sub main()
    Dim a As Date, b As Date
    a = 43831.5
    b = a + 0.000001
    Debug.Print (CStr(a) = CStr(b)) & " " & (a = b)
End Sub
