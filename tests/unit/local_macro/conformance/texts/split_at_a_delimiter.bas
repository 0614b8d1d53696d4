' Split parts a text at each delimiter; two in a row have an empty text between them.
'> 3 [a] [] [b]
'> 0 to 2
Sub main()
    parts = Split("a,,b", ",")
    Debug.Print (UBound(parts) + 1) & " [" & parts(0) & "] [" & parts(1) & "] [" & parts(2) & "]"
    Debug.Print LBound(parts) & " to " & UBound(parts)
End Sub
