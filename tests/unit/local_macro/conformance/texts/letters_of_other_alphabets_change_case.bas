' Greek and Cyrillic letters have capitals as well.
'> True True True
Sub main()
    Debug.Print (UCase(ChrW(&H3B1)) = ChrW(&H391)) & " " & (LCase(ChrW(&H416)) = ChrW(&H436)) & " " & _
        (UCase(ChrW(255)) = ChrW(376))
End Sub
