' Kill deletes a file, or with wildcards all that fit; * and ? stand for characters.
'> left: b.log
'> 53 File not found
Sub main()
    Dim name1 As Variant
    MkDir "C:\d"
    For Each name1 In Array("a1.txt", "a2.txt", "b.log")
        Open "C:\d\" & name1 For Output As #1
        Close #1
    Next
    Kill "C:\d\a?.t*"
    Debug.Print "left: " & Dir("C:\d\*.*")
    On Error Resume Next
    Kill "C:\d\a*.txt"
    Debug.Print Err.Number & " " & Err.Description
End Sub
