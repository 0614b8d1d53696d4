' Lists take their turn among other signs.
'> True False True
Sub main()
    Debug.Print ("file7.txt" Like "file[0-9].txt") & " " & ("fileX.txt" Like "file[0-9].txt") & " " & _
        ("B-1" Like "[A-C]-#")
End Sub
