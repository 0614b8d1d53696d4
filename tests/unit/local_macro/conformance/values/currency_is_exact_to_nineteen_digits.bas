' Currency holds up to 922,337,203,685,477.5807, every digit of it.
'> 922337203685477.5807
'> 922337203685477.5806
'! 6 Overflow
Sub main()
    Dim c As Currency
    c = "922337203685477.5807"
    Debug.Print "" & c
    c = c - 0.0001@
    Debug.Print "" & c
    c = 922337203685478#
End Sub
