' A product of two amounts is rounded at the fourth decimal.
'> 0.0002 0.0002 0.0004
Sub main()
    Debug.Print 0.0003@ * 0.5@ & " " & 0.0005@ * 0.5@ & " " & 0.0007@ * 0.5@
End Sub
