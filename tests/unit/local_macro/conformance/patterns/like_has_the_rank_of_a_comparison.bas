' Like and the comparisons are taken from left to right, behind & and in front of Not.
'> True True True
Sub main()
    Debug.Print ("a" Like "b" = False) & " " & ("a" & "b" Like "ab") & " " & (Not "a" Like "b")
End Sub
