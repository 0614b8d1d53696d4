' A list in brackets matches one character that stands in it or in one of its ranges.
'> True True False True True
Sub main()
    Debug.Print ("b" Like "[abc]") & " " & ("b" Like "[a-c]") & " " & ("d" Like "[a-c]") & " " & ("7" Like "[a-c5-9]") & _
        " " & ("x" Like "[a-cx]")
End Sub
