' UCase and LCase change letters, accented ones too, and nothing else.
'> ABC1-Z
'> abc1-z
'> 201 233
Sub main()
    Debug.Print UCase("aBc1-z")
    Debug.Print LCase("aBc1-Z")
    Debug.Print AscW(UCase(ChrW(233))) & " " & AscW(LCase(ChrW(201)))
End Sub
