' The last range ends where all of them end; the width is that of the number behind it.
'> [1000:1010]
'> [ 100: 119]
'> [1011:    ]
'> [  5:  5]
Sub main()
    Debug.Print "[" & Partition(1005, 100, 1010, 20) & "]"
    Debug.Print "[" & Partition(100, 100, 1010, 20) & "]"
    Debug.Print "[" & Partition(2000, 100, 1010, 20) & "]"
    Debug.Print "[" & Partition(5, 0, 100, 1) & "]"
End Sub
