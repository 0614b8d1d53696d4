' Dir of something that isn't there is the empty text and no error.
'> [][]
Sub main()
    Debug.Print "[" & Dir("C:\none\*.*") & "][" & Dir("C:\none.txt") & "]"
End Sub
