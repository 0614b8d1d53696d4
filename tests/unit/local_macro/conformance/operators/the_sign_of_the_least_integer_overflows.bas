' There is no 32768 among the Integers.
'! 6 Overflow
Sub main()
    Dim i As Integer
    i = -32768
    Debug.Print -i
End Sub
