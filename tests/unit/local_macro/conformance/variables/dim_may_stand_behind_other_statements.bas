' A declaration needn't come first, but it has to come before the first use.
'> 1
Sub main()
    Debug.Print "1"
    Dim late As Long
    late = 2
End Sub
