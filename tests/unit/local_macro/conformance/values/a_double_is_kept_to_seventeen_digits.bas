' What isn't shown still counts: a sum of tenths differs from the number that looks the same.
'> 0.3 0.3
'> False
'> True
Sub main()
    Dim d As Double
    d = 0.1 + 0.2
    Debug.Print d & " " & 0.3
    Debug.Print d = 0.3
    Debug.Print CStr(d) = CStr(0.3)
End Sub
